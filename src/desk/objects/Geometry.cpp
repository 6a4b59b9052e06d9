#include "desk/objects/Geometry.h"

#include <algorithm>
#include <memory>

namespace desk {

host::Ref<host::IHostEnvelope> Point::Bounds() const {
    return std::make_shared<Envelope>(x_, y_, x_, y_);
}

host::Ref<host::IHostObject> Point::Copy() const {
    return std::make_shared<Point>(x_, y_);
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

host::Ref<host::IHostPoint> Envelope::TopLeft() const {
    return std::make_shared<Point>(xmin_, ymax_);
}

host::Ref<host::IHostPoint> Envelope::BottomLeft() const {
    return std::make_shared<Point>(xmin_, ymin_);
}

host::Ref<host::IHostPoint> Envelope::BottomRight() const {
    return std::make_shared<Point>(xmax_, ymin_);
}

host::Ref<host::IHostPoint> Envelope::Centre() const {
    return std::make_shared<Point>((xmin_ + xmax_) / 2, (ymin_ + ymax_) / 2);
}

void Envelope::SetCoords(double xmin, double ymin, double xmax, double ymax) {
    xmin_ = xmin;
    ymin_ = ymin;
    xmax_ = xmax;
    ymax_ = ymax;
}

void Envelope::Shift(double dx, double dy) {
    SetCoords(xmin_ + dx, ymin_ + dy, xmax_ + dx, ymax_ + dy);
}

host::Ref<host::IHostEnvelope> Envelope::Bounds() const {
    return std::make_shared<Envelope>(xmin_, ymin_, xmax_, ymax_);
}

host::Ref<host::IHostObject> Envelope::Copy() const {
    return Bounds();
}

}  // namespace desk
