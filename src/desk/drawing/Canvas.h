#pragma once

#include <cstdint>
#include <span>

#include "desk/devices/Shapes.h"
#include "desk/text/GlyphCanvas.h"

namespace desk {

/// What a page is painted on. Colours are 0xBBGGRR; one unit is a point, Y downward.
class Canvas : public GlyphCanvas {
public:
    /// Fills boxes as one shape. Edges are not softened, so that neighbours show no seam.
    virtual void Fill(std::span<const PaintBox> boxes, std::uint32_t color) = 0;
    virtual void Stroke(const PaintOutline& outline) = 0;
    /// For the glyphs that follow.
    virtual void SetTextColor(std::uint32_t color) = 0;
};

}  // namespace desk
