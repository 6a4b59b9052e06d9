#include "desk/text/CairoGlyphs.h"

#include <numbers>
#include <pango/pangocairo.h>

namespace desk {
namespace {

bool IsImage(cairo_t* context) {
    return cairo_surface_get_type(cairo_get_group_target(context)) == CAIRO_SURFACE_TYPE_IMAGE;
}

}  // namespace

void CairoGlyphs::Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) {
    if (baseline.angle == 0) return Gather(font, line, baseline.x, baseline.y);
    FinishGlyphs();
    cairo_save(context_);
    cairo_translate(context_, baseline.x, baseline.y);
    cairo_rotate(context_, -baseline.angle * std::numbers::pi / 180);
    Gather(font, line, 0, 0);
    FinishGlyphs();
    cairo_restore(context_);
}

void CairoGlyphs::Gather(PangoFont* font, const GlyphLine& line, double x, double y) {
    if (font != font_) FinishGlyphs();
    font_ = font;
    std::string_view text = line.text;
    for (const Glyph& glyph : line.glyphs) {
        const double glyphY = y + Points(glyph.y);
        GlyphUnits glyphX = glyph.x;
        for (unsigned i = 0; i < glyph.count; ++i, glyphX += glyph.step) {
            Gather(glyph, text.substr(0, glyph.bytes), x + Points(glyphX), glyphY);
            text.remove_prefix(glyph.bytes);
        }
    }
}

void CairoGlyphs::Gather(const Glyph& glyph, std::string_view text, double x, double y) {
    if ((glyph.id & PANGO_GLYPH_UNKNOWN_FLAG) != 0) return ShowBox(glyph, x, y);
    glyphs_.push_back({glyph.id, x, y});
    text_ += text;
    if (!text.empty() || clusters_.empty())
        clusters_.push_back({static_cast<int>(text.size()), 1});
    else
        ++clusters_.back().num_glyphs;
}

void CairoGlyphs::ShowBox(const Glyph& unknown, double x, double y) {
    PangoGlyphInfo info{};
    info.glyph = unknown.id;
    PangoRectangle logical{};
    pango_font_get_glyph_extents(font_, unknown.id, nullptr, &logical);
    info.geometry.width = logical.width;
    int cluster = 0;
    PangoGlyphString box{1, &info, &cluster, 0};
    cairo_move_to(context_, x, y);
    pango_cairo_show_glyph_string(context_, font_, &box);
    cairo_new_path(context_);
}

void CairoGlyphs::FinishGlyphs() {
    if (glyphs_.empty()) return;
    const int count = static_cast<int>(glyphs_.size());
    cairo_set_scaled_font(context_, pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font_)));
    if (IsImage(context_)) {
        cairo_glyph_path(context_, glyphs_.data(), count);
        cairo_fill(context_);
    } else {
        cairo_show_text_glyphs(context_, text_.data(), static_cast<int>(text_.size()),
                               glyphs_.data(), count, clusters_.data(),
                               static_cast<int>(clusters_.size()),
                               static_cast<cairo_text_cluster_flags_t>(0));
    }
    glyphs_.clear();
    clusters_.clear();
    text_.clear();
}

}  // namespace desk
