#include "desk/text/GlyphRun.h"

#include "desk/text/Surfaces.h"

namespace desk {

void GlyphRun::DropLine() {
    glyphs_.resize(line_.glyphs);
    clusters_.resize(line_.clusters);
    text_.resize(line_.text);
}

void GlyphRun::PlaceLine(double x, double y) {
    for (std::size_t i = line_.glyphs; i < glyphs_.size(); ++i) {
        glyphs_[i].x += x;
        glyphs_[i].y += y;
    }
}

void GlyphRun::Show(cairo_t* context, cairo_scaled_font_t* font) {
    if (glyphs_.empty()) return;
    const int count = static_cast<int>(glyphs_.size());
    cairo_set_scaled_font(context, font);
    if (IsImage(context)) {
        cairo_glyph_path(context, glyphs_.data(), count);
        cairo_fill(context);
    } else {
        cairo_show_text_glyphs(context, text_.data(), static_cast<int>(text_.size()),
                               glyphs_.data(), count, clusters_.data(),
                               static_cast<int>(clusters_.size()),
                               static_cast<cairo_text_cluster_flags_t>(0));
    }
    glyphs_.clear();
    clusters_.clear();
    text_.clear();
}

}  // namespace desk
