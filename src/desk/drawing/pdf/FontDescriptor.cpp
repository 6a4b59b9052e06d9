#include "desk/drawing/pdf/FontDescriptor.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <hb-ot.h>
#include <memory>

#include "desk/drawing/pdf/Numbers.h"
#include "desk/text/Handles.h"

namespace desk::pdf {
namespace {

using FontHandle = std::unique_ptr<hb_font_t, Releaser<hb_font_destroy>>;

// Flags of a descriptor.
constexpr int kFixedPitch = 1;
constexpr int kSymbolic = 4;  // Its glyphs are not called by letters.
constexpr int kItalic = 64;

/// The widths of upright stems in common designs, which files of fonts do not tell.
constexpr int kLightStem = 80;
constexpr int kBoldStem = 140;
constexpr float kBoldWeight = 600;

/// A table of numbers at fixed places.
class Table {
public:
    Table(hb_face_t* face, const char* tag)
        : blob_(hb_face_reference_table(face, hb_tag_from_string(tag, -1))) {}

    int Signed16(unsigned offset) const { return static_cast<std::int16_t>(Unsigned(offset, 2)); }
    std::uint32_t Unsigned(unsigned offset, unsigned size) const {
        unsigned length = 0;
        const char* const data = hb_blob_get_data(blob_.get(), &length);
        std::uint32_t value = 0;
        for (unsigned i = offset; i < offset + size; ++i)
            value = value << 8 | (i < length ? static_cast<unsigned char>(data[i]) : 0U);
        return value;
    }

private:
    BlobHandle blob_;
};

void AppendEntry(std::string& out, const char* key, double value) {
    out += key;
    AppendNumber(out, value, 0);
}

}  // namespace

std::string FontName(hb_face_t* face) {
    std::array<char, 128> text{};
    auto size = static_cast<unsigned>(text.size());
    hb_ot_name_get_utf8(face, HB_OT_NAME_ID_POSTSCRIPT_NAME, HB_LANGUAGE_INVALID, &size,
                        text.data());
    std::string name(text.data(), size);
    std::erase_if(name, [](unsigned char c) {
        const bool kept = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                          (c >= 'a' && c <= 'z') || c == '-' || c == '_' || c == '.';
        return !kept;
    });
    return name.empty() ? "Font" : name;
}

std::string DescriptorEntries(hb_face_t* face) {
    const FontHandle font(hb_font_create(face));
    const double share = 1000.0 / hb_face_get_upem(face);
    const Table head(face, "head");
    const Table post(face, "post");
    hb_font_extents_t extents{};
    hb_font_get_extents_for_direction(font.get(), HB_DIRECTION_LTR, &extents);
    hb_position_t capHeight = 0;
    hb_ot_metrics_get_position_with_fallback(font.get(), HB_OT_METRICS_TAG_CAP_HEIGHT, &capHeight);
    const double angle = static_cast<std::int32_t>(post.Unsigned(4, 4)) / 65536.0;
    const bool bold = hb_style_get_value(font.get(), HB_STYLE_TAG_WEIGHT) >= kBoldWeight;
    std::string out;
    AppendEntry(
        out, "/Flags ",
        kSymbolic | (post.Unsigned(12, 4) != 0 ? kFixedPitch : 0) | (angle != 0 ? kItalic : 0));
    out += "/FontBBox[";
    for (const unsigned offset : {36U, 38U, 40U, 42U})
        AppendEntry(out, offset == 36 ? "" : " ", head.Signed16(offset) * share);
    out += "]/ItalicAngle ";
    AppendNumber(out, angle, 2);
    AppendEntry(out, "/Ascent ", extents.ascender * share);
    AppendEntry(out, "/Descent ", extents.descender * share);
    AppendEntry(out, "/CapHeight ", capHeight * share);
    AppendEntry(out, "/StemV ", bold ? kBoldStem : kLightStem);
    return out;
}

}  // namespace desk::pdf
