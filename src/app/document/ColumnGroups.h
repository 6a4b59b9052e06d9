#pragma once

#include <cstdint>

namespace app {

/// Column groups that `make` lays out side by side at most.
inline constexpr int kMostColumnGroups = 16;

/// Inches, in whole thousandths.
struct ColumnGroups {
    double width;  ///< Of one group.
    double gap;    ///< Between two groups.
};

/// Divides a frame into this many column groups, or for 0 into as many of at least 2.1 inches as
/// fit (three on a Letter sheet).
ColumnGroups DivideFrame(double frameWidth, std::int32_t groups);

/// Rounds down to thousandths of an inch.
double ToThousandths(double inches);

}  // namespace app
