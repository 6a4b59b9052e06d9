#pragma once

#include "host/Object.h"

namespace host {

struct IHostEnvelope;

/// Lengths on the page are inches, sizes of type points.
inline constexpr double kPointsPerInch = 72;

/// A shape on the page, in inches, Y growing upward.
struct IHostGeometry : virtual IHostClonable {
    /// A copy of the smallest envelope around the shape.
    virtual Ref<IHostEnvelope> Bounds() const = 0;
};

/// A shape that can be moved.
struct IHostMovable : virtual IHostObject {
    virtual void Shift(double dx, double dy) = 0;
};

struct IHostPoint : virtual IHostGeometry {
    virtual double X() const = 0;
    virtual double Y() const = 0;
    virtual void SetX(double x) = 0;
    virtual void SetY(double y) = 0;
};

/// A straight line between two points.
struct IHostLine : virtual IHostGeometry {
    virtual Ref<IHostPoint> StartPoint() const = 0;
    virtual Ref<IHostPoint> EndPoint() const = 0;
    virtual void SetStartPoint(const Ref<IHostPoint>& point) = 0;
    virtual void SetEndPoint(const Ref<IHostPoint>& point) = 0;
};

/// A shape with an area.
struct IHostArea : virtual IHostObject {
    /// A new point at the middle.
    virtual Ref<IHostPoint> Centre() const = 0;
};

/// An upright rectangle.
struct IHostEnvelope : virtual IHostGeometry, virtual IHostMovable, virtual IHostArea {
    virtual double XMin() const = 0;
    virtual double YMin() const = 0;
    virtual double XMax() const = 0;
    virtual double YMax() const = 0;
    virtual double Width() const = 0;
    virtual double Height() const = 0;
    /// Changes the height. The lower edge stays where it was.
    virtual void SetHeight(double height) = 0;
    /// A new point at a corner.
    virtual Ref<IHostPoint> TopLeft() const = 0;
    virtual Ref<IHostPoint> BottomLeft() const = 0;
    virtual Ref<IHostPoint> BottomRight() const = 0;
    virtual void SetCoords(double xmin, double ymin, double xmax, double ymax) = 0;
};

/// Makes shapes without coordinates.
struct IHostGeometryFactory : virtual IHostObject {
    virtual Ref<IHostPoint> NewPoint() = 0;
    virtual Ref<IHostEnvelope> NewEnvelope() = 0;
    virtual Ref<IHostLine> NewLine() = 0;
};

}  // namespace host
