#include "desk/drawing/pdf/FontSubset.h"

#include <hb-subset.h>
#include <initializer_list>

#include "desk/drawing/pdf/CffCharset.h"
#include "host/Failure.h"

namespace desk::pdf {
namespace {

constexpr hb_tag_t kGlyf = HB_TAG('g', 'l', 'y', 'f');
constexpr hb_tag_t kCff = HB_TAG('C', 'F', 'F', ' ');

using InputHandle = std::unique_ptr<hb_subset_input_t, Releaser<hb_subset_input_destroy>>;
using PlanHandle = std::unique_ptr<hb_subset_plan_t, Releaser<hb_subset_plan_destroy>>;
using FaceHandle = std::unique_ptr<hb_face_t, Releaser<hb_face_destroy>>;

bool HasTable(hb_face_t* face, hb_tag_t tag) {
    const BlobHandle table(hb_face_reference_table(face, tag));
    return hb_blob_get_length(table.get()) > 0;
}

std::string_view BytesOf(hb_blob_t* blob) {
    unsigned length = 0;
    const char* const data = hb_blob_get_data(blob, &length);
    return {data, length};
}

/// Tables that choose and place glyphs, or name them: in a page all that is done.
InputHandle InputFor(const hb_set_t* glyphs) {
    InputHandle input(hb_subset_input_create_or_fail());
    if (!input) return input;
    hb_set_union(hb_subset_input_glyph_set(input.get()), glyphs);
    hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* tag : {"GSUB", "GPOS", "GDEF", "BASE", "MATH", "JSTF", "cmap", "name", "post",
                            "OS/2", "gasp", "hdmx", "VDMX", "LTSH", "DSIG", "kern", "vhea", "vmtx",
                            "VORG", "COLR", "CPAL", "CBDT", "CBLC", "SVG ", "sbix", "STAT", "fvar",
                            "gvar", "avar", "cvar", "HVAR", "MVAR", "VVAR", "meta", "PCLT"})
        hb_set_add(dropped, hb_tag_from_string(tag, -1));
    return input;
}

[[noreturn]] void Fail() {
    throw host::Failure(host::kFailureUnspecified, "FontSubset",
                        "A font cannot be put into the file.");
}

}  // namespace

FontSubset::Outlines FontSubset::OutlinesOf(hb_face_t* face) {
    if (HasTable(face, kGlyf)) return Outlines::TrueType;
    if (!HasTable(face, kCff)) return Outlines::None;
    const BlobHandle cff(hb_face_reference_table(face, kCff));
    const bool numbers = ReadCharset(BytesOf(cff.get()), hb_face_get_glyph_count(face)).has_value();
    return numbers ? Outlines::CffNumbers : Outlines::CffNames;
}

FontSubset::FontSubset(hb_face_t* face, const hb_set_t* glyphs) {
    const InputHandle input = InputFor(glyphs);
    const PlanHandle plan(input ? hb_subset_plan_create_or_fail(face, input.get()) : nullptr);
    const FaceHandle subset(plan ? hb_subset_plan_execute_or_fail(plan.get()) : nullptr);
    if (!subset) Fail();
    const hb_map_t* const numbers = hb_subset_plan_old_to_new_glyph_mapping(plan.get());
    for (hb_codepoint_t glyph = HB_SET_VALUE_INVALID; hb_set_next(glyphs, &glyph);)
        numbers_[glyph] = hb_map_get(numbers, glyph);
    if (HasTable(face, kGlyf)) {
        bytes_.reset(hb_face_reference_blob(subset.get()));
        return;
    }
    bytes_.reset(hb_face_reference_table(subset.get(), kCff));
    if (const auto charset = ReadCharset(Bytes(), hb_face_get_glyph_count(subset.get())))
        for (auto& [glyph, number] : numbers_) number = charset->at(number);
}

std::string_view FontSubset::Bytes() const {
    return BytesOf(bytes_.get());
}

}  // namespace desk::pdf
