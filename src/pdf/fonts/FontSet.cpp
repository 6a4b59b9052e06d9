#include "pdf/fonts/FontSet.h"

#include <algorithm>
#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>
#include <span>

#include "pdf/file/Syntax.h"
#include "pdf/fonts/FontDescriptor.h"

namespace pdf {
namespace {

cairo_matrix_t MatrixOf(PangoFont* font) {
    cairo_matrix_t matrix;
    cairo_scaled_font_get_font_matrix(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font)),
                                      &matrix);
    return matrix;
}

bool IsMadeBold(PangoFont* font) {
    FcBool bold = FcFalse;
    FcPatternGetBool(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_EMBOLDEN, 0, &bold);
    return bold != FcFalse;
}

/// Returns whether a variable font is set to other than its default design.
bool IsVaried(PangoFont* font) {
    unsigned count = 0;
    const int* const coordinates =
        hb_font_get_var_coords_normalized(pango_font_get_hb_font(font), &count);
    return std::ranges::any_of(std::span(coordinates, count), [](int one) { return one != 0; });
}

/// Returns whether glyphs are drawn in another shape than their outlines in the font file.
bool IsChanged(PangoFont* font) {
    return IsMadeBold(font) || IsVaried(font) || MatrixOf(font).yx != 0;
}

}  // namespace

const FontSet::Known& FontSet::Find(PangoFont* font) {
    const auto found =
        std::ranges::find_if(known_, [&](const auto& known) { return known->font.get() == font; });
    if (found != known_.end()) return **found;
    auto known = std::make_unique<Known>();
    known->font.reset(static_cast<PangoFont*>(g_object_ref(font)));
    known->use = NewUse(font);
    return *known_.emplace_back(std::move(known));
}

void FontSet::CheckLicence(PangoFont* font) {
    const std::string forbidden = ForbiddenBy(font);
    if (forbidden.empty()) return;
    const std::string name = FontName(hb_font_get_face(pango_font_get_hb_font(font)));
    numbers_.file.Found().Add(Violation::Rule::FontLicence,
                              "the font \"" + name + "\" " + forbidden);
}

FontUse FontSet::NewUse(PangoFont* font) {
    CheckLicence(font);
    const cairo_matrix_t matrix = MatrixOf(font);
    FontUse use;
    use.points = matrix.yy;
    hb_font_t* const shaped = pango_font_get_hb_font(font);
    hb_font_get_nominal_glyph(shaped, ' ', &use.blank);
    hb_font_extents_t extents{};
    int scale = 0;
    hb_font_get_scale(shaped, nullptr, &scale);
    hb_font_get_h_extents(shaped, &extents);
    use.ascent = use.points * extents.ascender / scale;
    use.descent = -use.points * extents.descender / scale;
    use.boxes = AddDrawn(font, DrawnFont::Drawings::Outlines);
    const auto outlines = EmbeddedFont::OutlinesOf(font);
    if (outlines == EmbeddedFont::Outlines::None) {
        use.face = AddDrawn(font, DrawnFont::Drawings::Pictures);
    } else if (IsChanged(font)) {
        use.face = use.boxes;
    } else {
        use.face = Embedded(font, outlines);
        use.across = matrix.xx / matrix.yy;
        use.slant = -matrix.xy / matrix.yy;
    }
    return use;
}

Typeface* FontSet::Embedded(PangoFont* font, EmbeddedFont::Outlines outlines) {
    Typeface*& known = embedded_[hb_font_get_face(pango_font_get_hb_font(font))];
    if (!known) known = Add(std::make_unique<EmbeddedFont>(font, outlines, numbers_));
    return known;
}

Typeface* FontSet::AddDrawn(PangoFont* font, DrawnFont::Drawings drawings) {
    return Add(std::make_unique<DrawnFont>(font, MatrixOf(font).yy, drawings, numbers_, colors_));
}

Typeface* FontSet::Add(std::unique_ptr<Typeface> face) {
    return faces_.emplace_back(std::move(face)).get();
}

std::string FontSet::Write() {
    std::string names;
    for (const auto& face : faces_) {
        face->Write();
        for (const Subset& subset : face->Subsets())
            names += "/F" + std::to_string(subset.name) + ' ' + Reference(subset.object);
    }
    return names;
}

}  // namespace pdf
