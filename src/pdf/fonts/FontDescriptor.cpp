#include "pdf/fonts/FontDescriptor.h"

#include <algorithm>
#include <array>
#include <cairo-ft.h>
#include <freetype/tttables.h>
#include <hb-ot.h>
#include <memory>
#include <pango/pangocairo.h>

#include "glyphs/Releaser.h"
#include "pdf/file/Output.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

using FontHandle = std::unique_ptr<hb_font_t, glyphs::Releaser<hb_font_destroy>>;

// Flags of a font descriptor, defined by PDF.
constexpr int kFixedPitch = 1;
constexpr int kSymbolic = 4;  // Glyphs are not identified by standard letters.
constexpr int kItalic = 64;

/// Stem widths of common designs, in thousandths of the font size; font files do not contain them.
constexpr int kLightStem = 80;
constexpr int kBoldStem = 140;
constexpr float kBoldWeight = 600;

/// Bytes of a font's name: a name of PDF has 127 at most, and the tag of a subset seven.
constexpr unsigned kLongestName = 120;

/// Returns null if the font does not have the table.
template <class Table>
const Table* SfntTable(const FreeTypeFace& face, FT_Sfnt_Tag tag) {
    return static_cast<const Table*>(FT_Get_Sfnt_Table(face.Get(), tag));
}

}  // namespace

FreeTypeFace::FreeTypeFace(PangoFont* font)
    : scaled_(pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font))),
      face_(cairo_ft_scaled_font_lock_face(scaled_)) {
    if (!face_) throw Error("The outlines of a font cannot be read.");
}

FreeTypeFace::~FreeTypeFace() {
    cairo_ft_scaled_font_unlock_face(scaled_);
}

std::string FontName(hb_face_t* face) {
    std::array<char, 128> text{};
    auto size = static_cast<unsigned>(text.size());
    hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size,
                        text.data());
    std::string name(text.data(), std::min(size, kLongestName));
    std::erase_if(name, [](unsigned char c) {
        const bool kept = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                          (c >= 'a' && c <= 'z') || c == '-' || c == '_' || c == '.';
        return !kept;
    });
    return name.empty() ? "Font" : name;
}

std::string ForbiddenBy(PangoFont* font) {
    const FreeTypeFace face(font);
    const unsigned licence = FT_Get_FSType_Flags(face.Get());
    // Of several permissions the widest holds.
    constexpr unsigned kAllowed =
        FT_FSTYPE_PREVIEW_AND_PRINT_EMBEDDING | FT_FSTYPE_EDITABLE_EMBEDDING;
    if ((licence & FT_FSTYPE_RESTRICTED_LICENSE_EMBEDDING) != 0 && (licence & kAllowed) == 0)
        return "may not be embedded in files by its licence";
    if ((licence & FT_FSTYPE_BITMAP_EMBEDDING_ONLY) != 0)
        return "may not be embedded as outlines by its licence";
    if ((licence & FT_FSTYPE_NO_SUBSETTING) != 0)
        return "may not be embedded in part by its licence";
    return {};
}

std::string DescriptorEntries(PangoFont* pangoFont) {
    hb_face_t* const face = hb_font_get_face(pango_font_get_hb_font(pangoFont));
    const FontHandle font(hb_font_create(face));
    const FreeTypeFace tables(pangoFont);
    const auto* const head = SfntTable<TT_Header>(tables, FT_SFNT_HEAD);
    const auto* const post = SfntTable<TT_Postscript>(tables, FT_SFNT_POST);
    hb_font_extents_t extents{};
    hb_font_get_extents_for_direction(font.get(), HB_DIRECTION_LTR, &extents);
    hb_position_t capHeight = 0;
    hb_ot_metrics_get_position_with_fallback(font.get(), HB_OT_METRICS_TAG_CAP_HEIGHT, &capHeight);
    const double angle = post ? static_cast<double>(post->italicAngle) / 65536.0 : 0;
    const bool fixedPitch = post && post->isFixedPitch != 0;
    const bool bold = hb_style_get_value(font.get(), HB_STYLE_TAG_WEIGHT) >= kBoldWeight;
    const double share = 1000.0 / hb_face_get_upem(face);
    const auto scaled = [&](double units) { return Number(units * share, 0); };
    std::string box = "0 0 0 0";
    if (head)
        box = scaled(head->xMin) + ' ' + scaled(head->yMin) + ' ' + scaled(head->xMax) + ' ' +
              scaled(head->yMax);
    const int flags = kSymbolic | (fixedPitch ? kFixedPitch : 0) | (angle != 0 ? kItalic : 0);
    return "/Flags " + std::to_string(flags) + "/FontBBox[" + box + "]/ItalicAngle " +
           Number(angle, 2) + "/Ascent " + scaled(extents.ascender) + "/Descent " +
           scaled(extents.descender) + "/CapHeight " + scaled(capHeight) + "/StemV " +
           std::to_string(bold ? kBoldStem : kLightStem);
}

}  // namespace pdf
