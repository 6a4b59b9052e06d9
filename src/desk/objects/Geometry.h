#pragma once

#include <limits>
#include <memory>

#include "host/Display.h"
#include "host/Symbols.h"

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
    host::Ref<host::IHostObject> Copy() const override { return std::make_shared<Point>(x_, y_); }

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

/// Does not sort its corners.
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
    host::Ref<host::IHostPoint> TopLeft() const override { return At(xmin_, ymax_); }
    host::Ref<host::IHostPoint> BottomLeft() const override { return At(xmin_, ymin_); }
    host::Ref<host::IHostPoint> BottomRight() const override { return At(xmax_, ymin_); }
    host::Ref<host::IHostPoint> Centre() const override {
        return At((xmin_ + xmax_) / 2, (ymin_ + ymax_) / 2);
    }
    void SetCoords(double xmin, double ymin, double xmax, double ymax) override {
        xmin_ = xmin;
        ymin_ = ymin;
        xmax_ = xmax;
        ymax_ = ymax;
    }
    void Shift(double dx, double dy) override {
        SetCoords(xmin_ + dx, ymin_ + dy, xmax_ + dx, ymax_ + dy);
    }
    host::Ref<host::IHostEnvelope> Bounds() const override {
        return std::make_shared<Envelope>(xmin_, ymin_, xmax_, ymax_);
    }
    host::Ref<host::IHostObject> Copy() const override { return Bounds(); }

private:
    static host::Ref<host::IHostPoint> At(double x, double y) {
        return std::make_shared<Point>(x, y);
    }

    double xmin_ = 0;
    double ymin_ = 0;
    double xmax_ = 0;
    double ymax_ = 0;
};

/// An upright rectangle in inches. Initially empty.
struct Box {
    double xmin = std::numeric_limits<double>::infinity();
    double ymin = std::numeric_limits<double>::infinity();
    double xmax = -std::numeric_limits<double>::infinity();
    double ymax = -std::numeric_limits<double>::infinity();

    bool operator==(const Box&) const = default;
    bool IsEmpty() const { return xmin > xmax || ymin > ymax; }
    void Include(const Box& other);
};

/// Returns the upright box of a text at (0, 0), Y upward, in points. The extent (points) is placed
/// by the placement values of host::IHostTextSymbol and rotated by the angle (degrees,
/// counter-clockwise). The lower edge is used as the baseline, since an extent has none.
Box HangingBox(const host::TextExtent& extent, int horizontal, int vertical, double angle);

class DisplayTransformation final : public host::IHostDisplayTransformation {
public:
    host::Ref<host::IHostEnvelope> ShownExtent() const override { return shown_; }
    void SetShownExtent(const host::Ref<host::IHostEnvelope>& extent) override { shown_ = extent; }
    host::Ref<host::IHostEnvelope> FullExtent() const override { return full_; }
    void SetFullExtent(const host::Ref<host::IHostEnvelope>& extent) override { full_ = extent; }
    host::PixelRectangle DeviceRectangle() const override { return device_; }
    void SetDeviceRectangle(const host::PixelRectangle& rectangle) override { device_ = rectangle; }
    double DotsPerInch() const override { return dotsPerInch_; }
    void SetDotsPerInch(double dotsPerInch) override { dotsPerInch_ = dotsPerInch; }

private:
    host::Ref<host::IHostEnvelope> shown_;
    host::Ref<host::IHostEnvelope> full_;
    host::PixelRectangle device_;
    double dotsPerInch_ = 96;
};

}  // namespace desk
