#include "desk/drawing/pdf/FontSet.h"

#include <algorithm>
#include <pango/pangocairo.h>
#include <pango/pangofc-font.h>
#include <span>

#include "desk/drawing/pdf/EmbeddedFont.h"
#include "desk/drawing/pdf/FontSubset.h"
#include "desk/drawing/pdf/Numbers.h"
#include "desk/drawing/pdf/OutlineFont.h"

namespace desk::pdf {
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

/// Whether the letters are not those of the default design of a variable font.
bool IsVaried(hb_font_t* font) {
    unsigned count = 0;
    const int* const coordinates = hb_font_get_var_coords_normalized(font, &count);
    return std::ranges::any_of(std::span(coordinates, count), [](int one) { return one != 0; });
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

FontUse FontSet::NewUse(PangoFont* font) {
    const cairo_matrix_t matrix = MatrixOf(font);
    FontUse use;
    use.points = matrix.yy;
    use.boxes = Add(std::make_unique<OutlineFont>(font, use.points, numbers_));
    use.face = EmbeddedFace(font);
    if (!use.face) {
        use.face = use.boxes;
        return use;
    }
    use.across = matrix.xx / matrix.yy;
    use.slant = -matrix.xy / matrix.yy;
    return use;
}

/// Null for a font that must be drawn.
Typeface* FontSet::EmbeddedFace(PangoFont* font) {
    hb_font_t* const shaping = pango_font_get_hb_font(font);
    hb_face_t* const face = hb_font_get_face(shaping);
    if (IsMadeBold(font) || IsVaried(shaping) || MatrixOf(font).yx != 0) return nullptr;
    const auto known =
        std::ranges::find_if(embedded_, [&](const Embedded& one) { return one.face == face; });
    if (known != embedded_.end()) return known->typeface;
    const auto outlines = FontSubset::OutlinesOf(face);
    if (outlines == FontSubset::Outlines::None) return nullptr;
    Typeface* const added = Add(std::make_unique<EmbeddedFont>(face, outlines, numbers_));
    embedded_.push_back({face, added});
    return added;
}

Typeface* FontSet::Add(std::unique_ptr<Typeface> face) {
    return faces_.emplace_back(std::move(face)).get();
}

std::string FontSet::Write(ObjectFile& file) {
    std::string names;
    for (const auto& face : faces_) {
        face->Write(file);
        for (const Subset& subset : face->Subsets()) {
            names += "/F";
            AppendInteger(names, subset.name);
            names += ' ';
            AppendReference(names, subset.object);
        }
    }
    return names;
}

}  // namespace desk::pdf
