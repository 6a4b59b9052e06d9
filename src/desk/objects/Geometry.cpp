#include "desk/objects/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace desk {
namespace {

/// Share of the width that lies left of the point.
double LeftShare(int horizontal) {
    if (horizontal == 1) return 0.5;
    return horizontal == 2 ? 1 : 0;
}

/// Share of the height that lies below the point.
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

host::Ref<host::IHostEnvelope> Point::Bounds() const {
    return std::make_shared<Envelope>(x_, y_, x_, y_);
}

host::Ref<host::IHostEnvelope> Line::Bounds() const {
    const auto [left, right] = std::minmax({start_->X(), end_->X()});
    const auto [bottom, top] = std::minmax({start_->Y(), end_->Y()});
    return std::make_shared<Envelope>(left, bottom, right, top);
}

host::Ref<host::IHostObject> Line::Copy() const {
    auto copy = std::make_shared<Line>();
    copy->start_ = std::make_shared<Point>(start_->X(), start_->Y());
    copy->end_ = std::make_shared<Point>(end_->X(), end_->Y());
    return copy;
}

void Box::Include(const Box& other) {
    xmin = std::min(xmin, other.xmin);
    ymin = std::min(ymin, other.ymin);
    xmax = std::max(xmax, other.xmax);
    ymax = std::max(ymax, other.ymax);
}

Box HangingBox(const host::TextExtent& extent, int horizontal, int vertical, double angle) {
    const double width = extent.xSize / host::kPointsPerInch;
    const double height = extent.ySize / host::kPointsPerInch;
    const double left = -width * LeftShare(horizontal);
    const double bottom = -height * LowerShare(vertical);
    const Box box{left, bottom, left + width, bottom + height};
    return angle == 0 ? box : Turned(box, angle);
}

}  // namespace desk
