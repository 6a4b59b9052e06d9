#pragma once

#include "desk/devices/CairoShapes.h"
#include "desk/drawing/Canvas.h"
#include "desk/text/CairoGlyphs.h"

namespace desk {

/// Paints by cairo, on a context of which one unit is a point, Y downward.
class CairoCanvas final : public Canvas {
public:
    explicit CairoCanvas(cairo_t* context) : context_(context), glyphs_(context) {}

    void Fill(std::span<const PaintBox> boxes, std::uint32_t color) override {
        FillBoxes(context_, boxes, color);
    }
    void Stroke(const PaintOutline& outline) override { StrokeOutline(context_, outline); }
    void SetTextColor(std::uint32_t color) override { UseColor(context_, color); }
    void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) override {
        glyphs_.Show(font, line, baseline);
    }
    void FinishGlyphs() override { glyphs_.FinishGlyphs(); }

private:
    cairo_t* context_;
    CairoGlyphs glyphs_;
};

}  // namespace desk
