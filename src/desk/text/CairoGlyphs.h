#pragma once

#include <cairo.h>
#include <string>
#include <vector>

#include "desk/text/GlyphCanvas.h"

namespace desk {

/// Shows glyphs with cairo. Batches the glyphs of a font, because a cairo call costs as much as
/// about twenty glyphs. On an image it fills outlines, since cairo would round glyph positions to
/// whole pixels.
class CairoGlyphs final : public GlyphCanvas {
public:
    /// One unit of the context is a point, Y downward.
    explicit CairoGlyphs(cairo_t* context) : context_(context) {}

    void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) override;
    void FinishGlyphs() override;

private:
    void Gather(PangoFont* font, const GlyphLine& line, double x, double y);
    void Gather(const Glyph& glyph, std::string_view text, double x, double y);
    void ShowBox(const Glyph& unknown, double x, double y);

    cairo_t* context_;
    PangoFont* font_ = nullptr;
    std::vector<cairo_glyph_t> glyphs_;
    std::vector<cairo_text_cluster_t> clusters_;
    std::string text_;
};

}  // namespace desk
