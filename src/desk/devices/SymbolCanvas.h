#pragma once

#include "desk/devices/CairoHandles.h"
#include "desk/devices/CairoShapes.h"
#include "host/Display.h"

namespace desk {

/// A device as a symbol draws on it through a transformation: one unit of its context is a point at
/// the transformation's resolution, Y downward.
class SymbolCanvas {
public:
    /// Fails for a device that does not exist and for a transformation that maps nothing.
    SymbolCanvas(host::DeviceContext device,
                 const host::Ref<host::IHostDisplayTransformation>& transformation);

    cairo_t* Context() const { return context_.get(); }
    PaintPoint Place(const host::IHostPoint& point) const;
    PaintBox Place(const host::IHostEnvelope& envelope) const;

private:
    PaintPoint Place(double x, double y) const;

    CairoContext context_;
    // Of the shown extent's upper left corner, and of a map unit, in points.
    PaintPoint origin_;
    PaintPoint unit_;
    PaintPoint corner_;  ///< The shown extent's upper left corner in map units.
};

}  // namespace desk
