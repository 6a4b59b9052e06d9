#include "desk/objects/Box.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/Geometry.h"

namespace desk {

namespace {

using host::kPointsPerInch;

/// Part of the width that lies left of the point.
double LeftShare(int horizontal) {
    if (horizontal == 1) return 0.5;
    return horizontal == 2 ? 1 : 0;
}

/// Part of the height that lies below the point.
double LowerShare(int vertical) {
    if (vertical == 0) return 1;
    return vertical == 1 ? 0.5 : 0;
}

Box Turned(const Box& box, double angle) {
    const double radians = angle * std::numbers::pi / 180;
    const double cosine = std::cos(radians);
    const double sine = std::sin(radians);
    Box turned;
    for (const double x : {box.xmin, box.xmax}) {
        for (const double y : {box.ymin, box.ymax}) {
            const double turnedX = x * cosine - y * sine;
            const double turnedY = x * sine + y * cosine;
            turned.Include({turnedX, turnedY, turnedX, turnedY});
        }
    }
    return turned;
}

}  // namespace

void Box::Include(const Box& other) {
    xmin = std::min(xmin, other.xmin);
    ymin = std::min(ymin, other.ymin);
    xmax = std::max(xmax, other.xmax);
    ymax = std::max(ymax, other.ymax);
}

Box HangingBox(const host::TextExtent& extent, int horizontal, int vertical, double angle) {
    const double width = extent.xSize / kPointsPerInch;
    const double height = extent.ySize / kPointsPerInch;
    const double left = -width * LeftShare(horizontal);
    const double bottom = -height * LowerShare(vertical);
    const Box box{left, bottom, left + width, bottom + height};
    return angle == 0 ? box : Turned(box, angle);
}

}  // namespace desk
