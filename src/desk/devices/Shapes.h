#pragma once

#include <cstdint>

#include "host/Geometry.h"

/// What is painted beside texts. Lengths are points, Y downward; colours are 0xBBGGRR.
namespace desk {

using host::kPointsPerInch;

/// An upright rectangle.
struct PaintBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    bool Overlaps(const PaintBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    PaintBox Shrunk(double by) const { return {left + by, top + by, right - by, bottom - by}; }
};

/// A line along the edges of a box, and along its diagonals if it is crossed.
struct PaintOutline {
    PaintBox box;
    std::uint32_t color = 0;
    bool crossed = false;
};

/// Width of every line, in points.
inline constexpr double kLineWidth = 0.5;

}  // namespace desk
