#pragma once

#include <optional>

#include "desk/devices/CairoShapes.h"
#include "desk/text/TextEngine.h"
#include "host/Display.h"
#include "host/Symbols.h"

namespace desk {

/// A device as a symbol draws on it through a transformation: one unit of its context is a point at
/// the transformation's resolution, Y downward.
class SymbolCanvas {
public:
    /// Throws host::Failure for a device that does not exist and for a transformation without an
    /// extent, a device rectangle or a resolution.
    SymbolCanvas(host::DeviceContext device,
                 const host::Ref<host::IHostDisplayTransformation>& transformation);

    cairo_t* Context() const { return context_.get(); }
    PaintPoint Place(const host::IHostPoint& point) const;
    PaintBox Place(const host::IHostEnvelope& envelope) const;

private:
    PaintPoint Place(double x, double y) const;

    CairoContext context_;
    PaintPoint origin_;  ///< The shown extent's upper left corner, in points.
    PaintPoint unit_;    ///< Size of a map unit, in points.
    PaintPoint corner_;  ///< The shown extent's upper left corner in map units.
};

/// 0xBBGGRR; nothing for a colour that does not show.
std::optional<std::uint32_t> VisibleColor(const host::Ref<host::IHostColor>& color);
FontSpec FontOf(const host::IHostTextSymbol& symbol);

}  // namespace desk
