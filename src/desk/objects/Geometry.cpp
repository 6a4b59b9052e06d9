#include "desk/objects/Geometry.h"

#include <memory>

namespace desk {

host::Ref<host::IHostEnvelope> Point::Bounds() const {
    return std::make_shared<Envelope>(x_, y_, x_, y_);
}

host::Ref<host::IHostObject> Point::Copy() const {
    return std::make_shared<Point>(x_, y_);
}

host::Ref<host::IHostPoint> Envelope::TopLeft() const {
    return std::make_shared<Point>(xmin_, ymax_);
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
