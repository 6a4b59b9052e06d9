#include "desk/text/GlyphRun.h"

namespace desk {
namespace {

/// A PDF of cairo tells the widths of glyphs in whole thousandths of the font's size, cut off, so
/// that a line ends short by nearly so much for each glyph. It gives a new and exact place to any
/// glyph that stands higher or lower than the one before by more than a thousandth of the size.
/// Each costs as much as ten glyphs; with one every 48 glyphs an eight-point leader ends at most a
/// third of a point (0.1 mm) before its place, and few lines need any.
constexpr std::size_t kGlyphsPerPlace = 48;
constexpr double kPlaceShift = 0.0012;  ///< In sizes of the font; no eye and no printer sees it.

double SizeOf(cairo_scaled_font_t* font) {
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(font, &matrix);
    return matrix.yy;
}

/// Whether the context draws on pixels.
bool IsImage(cairo_t* context) {
    return cairo_surface_get_type(cairo_get_group_target(context)) == CAIRO_SURFACE_TYPE_IMAGE;
}

}  // namespace

void GlyphRun::BeginLine(cairo_scaled_font_t* font) {
    if (font != font_) Show();
    font_ = font;
    line_ = {glyphs_.size(), clusters_.size(), text_.size()};
}

void GlyphRun::DropLine() {
    glyphs_.resize(line_.glyphs);
    clusters_.resize(line_.clusters);
    text_.resize(line_.text);
}

void GlyphRun::PlaceLine(double x, double y) {
    const double shift = kPlaceShift * SizeOf(font_);
    for (std::size_t i = line_.glyphs; i < glyphs_.size(); ++i) {
        const bool shifted = (i - line_.glyphs) / kGlyphsPerPlace % 2 != 0;
        glyphs_[i].x += x;
        glyphs_[i].y += shifted ? y + shift : y;
    }
}

void GlyphRun::Show() {
    if (glyphs_.empty()) return;
    const int count = static_cast<int>(glyphs_.size());
    cairo_set_scaled_font(context_, font_);
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
