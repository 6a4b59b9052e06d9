#include "app/document/ColumnGroups.h"

#include <algorithm>
#include <cmath>

namespace app {
namespace {

constexpr double kGap = 0.15;        // Inches, as are these:
constexpr double kLeastGroup = 2.1;  // Narrower groups are made only if they are asked for.
constexpr double kStep = 0.001;      // Widths are whole multiples.

// The layout counts only one gap when it decides whether another group fits. With n groups, n - 2
// gaps must not be wider than a group, from which rounding takes up to a step, and n from the sum.
double GapOf(double frameWidth, double groups) {
    if (groups <= 2) return kGap;
    const double rounding = groups * (groups + 1) * kStep;
    const double widest = (frameWidth - rounding) / (groups * groups - groups - 1);
    return std::min(kGap, ToThousandths(std::max(0.0, widest)));
}

}  // namespace

double ToThousandths(double inches) {
    constexpr double kRounding = 1e-6;
    return std::floor(inches * 1000 + kRounding) / 1000;
}

ColumnGroups DivideFrame(double frameWidth, std::int32_t groups) {
    const double fitting = std::floor((frameWidth + kGap) / (kLeastGroup + kGap));
    const double count = std::clamp<double>(groups > 0 ? groups : fitting, 1, kMostColumnGroups);
    const double gap = GapOf(frameWidth, count);
    // Two groups must end slightly before the frame's edge.
    const double filled = frameWidth - (count == 2 ? kStep : 0);
    return {ToThousandths((filled - (count - 1) * gap) / count), gap};
}

}  // namespace app
