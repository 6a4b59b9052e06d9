#pragma once

#include <cairo.h>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Gathers glyphs of one font, so that they are shown together: a call of cairo costs as much as
/// some twenty glyphs.
class GlyphRun {
public:
    explicit GlyphRun(cairo_t* context) : context_(context) {}

    /// Begins a line, or a part of one, in a font. What is added next hangs on its left end until
    /// PlaceLine. Shows what was gathered in another font.
    void BeginLine(cairo_scaled_font_t* font);

    void AddGlyph(unsigned long glyph, double x, double y) { glyphs_.push_back({glyph, x, y}); }

    /// Tells that the last glyphs stand for these bytes, so that the text can be read back from a
    /// file.
    void AddText(std::string_view bytes, int glyphs) {
        text_ += bytes;
        clusters_.push_back({static_cast<int>(bytes.size()), glyphs});
    }

    /// Takes back what was added to the line.
    void DropLine();

    /// Puts the left end of the line's baseline on the point.
    void PlaceLine(double x, double y);

    std::span<const cairo_glyph_t> Glyphs() const { return glyphs_; }

    /// Shows all glyphs and begins anew. On an image they are filled outlines, since cairo would
    /// set them on whole pixels.
    void Show();

private:
    struct Sizes {
        std::size_t glyphs = 0, clusters = 0, text = 0;
    };

    cairo_t* context_;
    cairo_scaled_font_t* font_ = nullptr;
    std::vector<cairo_glyph_t> glyphs_;
    std::vector<cairo_text_cluster_t> clusters_;
    std::string text_;
    Sizes line_;  ///< What there was before the line.
};

}  // namespace desk
