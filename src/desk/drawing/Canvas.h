#pragma once

#include <span>

#include "desk/devices/CairoShapes.h"
#include "desk/text/CairoGlyphs.h"
#include "pdf/structure/Meaning.h"

namespace desk {

/// The drawing surface of a page. One unit is a point, Y downward.
class Canvas : public GlyphCanvas {
public:
    /// Fills boxes as one shape. Edges are not antialiased, so that adjacent boxes show no seam.
    virtual void Fill(std::span<const PaintBox> boxes, const pdf::Color& color) = 0;
    virtual void Stroke(const PaintOutline& outline) = 0;
    /// Sets the colour of the following glyphs.
    virtual void SetTextColor(const pdf::Color& color) = 0;
    /// Sets what the following glyphs mean, for formats that keep it.
    virtual void SetMeaning(const pdf::Meaning& meaning) = 0;
    /// The following glyphs do not go on with the last word.
    virtual void PartWords() = 0;
};

/// Paints with cairo, on a context with one unit per point, Y downward.
class CairoCanvas final : public Canvas {
public:
    explicit CairoCanvas(cairo_t* context) : context_(context), glyphs_(context) {}

    void Fill(std::span<const PaintBox> boxes, const pdf::Color& color) override {
        FillBoxes(context_, boxes, color.rgb);
    }
    void Stroke(const PaintOutline& outline) override { StrokeOutline(context_, outline); }
    void SetTextColor(const pdf::Color& color) override { UseColor(context_, color.rgb); }
    void SetMeaning(const pdf::Meaning&) override {}
    void PartWords() override {}
    void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) override {
        glyphs_.Show(font, line, baseline);
    }
    void FinishGlyphs() override { glyphs_.FinishGlyphs(); }

private:
    cairo_t* context_;
    CairoGlyphs glyphs_;
};

}  // namespace desk
