#pragma once

#include <memory>

#include "host/Geometry.h"

namespace desk {

class Point final : public host::IHostPoint {
public:
    Point() = default;
    Point(double x, double y) : x_(x), y_(y) {}

    double X() const override { return x_; }
    double Y() const override { return y_; }
    void SetX(double x) override { x_ = x; }
    void SetY(double y) override { y_ = y; }
    host::Ref<host::IHostEnvelope> Bounds() const override;
    host::Ref<host::IHostObject> Copy() const override;

private:
    double x_ = 0;
    double y_ = 0;
};

class Line final : public host::IHostLine {
public:
    host::Ref<host::IHostPoint> StartPoint() const override { return start_; }
    host::Ref<host::IHostPoint> EndPoint() const override { return end_; }
    void SetStartPoint(const host::Ref<host::IHostPoint>& point) override { start_ = point; }
    void SetEndPoint(const host::Ref<host::IHostPoint>& point) override { end_ = point; }
    host::Ref<host::IHostEnvelope> Bounds() const override;
    host::Ref<host::IHostObject> Copy() const override;

private:
    host::Ref<host::IHostPoint> start_ = std::make_shared<Point>();
    host::Ref<host::IHostPoint> end_ = std::make_shared<Point>();
};

/// Corners stay as they were given; nothing puts them in order.
class Envelope final : public host::IHostEnvelope {
public:
    Envelope() = default;
    Envelope(double xmin, double ymin, double xmax, double ymax)
        : xmin_(xmin), ymin_(ymin), xmax_(xmax), ymax_(ymax) {}

    double XMin() const override { return xmin_; }
    double YMin() const override { return ymin_; }
    double XMax() const override { return xmax_; }
    double YMax() const override { return ymax_; }
    double Width() const override { return xmax_ - xmin_; }
    double Height() const override { return ymax_ - ymin_; }
    void SetHeight(double height) override { ymax_ = ymin_ + height; }
    host::Ref<host::IHostPoint> TopLeft() const override;
    host::Ref<host::IHostPoint> BottomLeft() const override;
    host::Ref<host::IHostPoint> BottomRight() const override;
    host::Ref<host::IHostPoint> Centre() const override;
    void SetCoords(double xmin, double ymin, double xmax, double ymax) override;
    void Shift(double dx, double dy) override;
    host::Ref<host::IHostEnvelope> Bounds() const override;
    host::Ref<host::IHostObject> Copy() const override;

private:
    double xmin_ = 0;
    double ymin_ = 0;
    double xmax_ = 0;
    double ymax_ = 0;
};

}  // namespace desk
