#pragma once

#include <optional>

#include "desk/devices/CairoShapes.h"
#include "desk/text/TextEngine.h"
#include "host/Display.h"
#include "host/Symbols.h"

namespace desk {

/// A device on which symbols draw through a transformation. One unit of its context is a point at
/// the transformation's resolution, Y downward.
class SymbolCanvas {
public:
    /// Throws host::Failure for an unknown device and for a transformation without an extent, a
    /// device rectangle or a resolution.
    SymbolCanvas(host::DeviceContext device,
                 const host::Ref<host::IHostDisplayTransformation>& transformation);

    cairo_t* Context() const { return context_.get(); }
    PaintPoint Place(const host::IHostPoint& point) const;
    PaintBox Place(const host::IHostEnvelope& envelope) const;

private:
    PaintPoint Place(double x, double y) const;

    CairoContext context_;
    PaintPoint origin_;  ///< Upper left corner of the shown extent, in points.
    PaintPoint unit_;    ///< Size of a map unit, in points.
    PaintPoint corner_;  ///< Upper left corner of the shown extent, in map units.
};

/// Returns nothing for null and for a transparent colour.
std::optional<pdf::Color> VisibleColor(const host::Ref<host::IHostColor>& color);
FontSpec FontOf(const host::IHostTextSymbol& symbol);

}  // namespace desk
