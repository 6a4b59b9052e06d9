#include "pdf/fonts/EmbeddedFont.h"

#include <algorithm>
#include <cmath>
#include <freetype/ftcid.h>
#include <hb-subset.h>
#include <vector>

#include "pdf/file/Output.h"
#include "pdf/file/Syntax.h"
#include "pdf/fonts/FontDescriptor.h"

namespace pdf {
namespace {

constexpr hb_tag_t kGlyf = HB_TAG('g', 'l', 'y', 'f');
constexpr hb_tag_t kCff = HB_TAG('C', 'F', 'F', ' ');

using InputHandle = std::unique_ptr<hb_subset_input_t, glyphs::Releaser<hb_subset_input_destroy>>;
using PlanHandle = std::unique_ptr<hb_subset_plan_t, glyphs::Releaser<hb_subset_plan_destroy>>;
using BlobHandle = std::unique_ptr<hb_blob_t, glyphs::Releaser<hb_blob_destroy>>;
using FaceHandle = std::unique_ptr<hb_face_t, glyphs::Releaser<hb_face_destroy>>;

bool HasTable(hb_face_t* face, hb_tag_t tag) {
    const BlobHandle table(hb_face_reference_table(face, tag));
    return hb_blob_get_length(table.get()) > 0;
}

hb_face_t* FaceOf(PangoFont* font) {
    return hb_font_get_face(pango_font_get_hb_font(font));
}

/// Drops tables that select, position or name glyphs, since the page does that.
InputHandle InputFor(const CodeTable& codes) {
    InputHandle input(hb_subset_input_create_or_fail());
    if (!input) return input;
    hb_set_t* const glyphs = hb_subset_input_glyph_set(input.get());
    for (const auto& entry : codes.Entries()) hb_set_add(glyphs, entry.glyph);
    hb_set_t* const dropped = hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG);
    for (const char* tag : {"GSUB", "GPOS", "GDEF", "BASE", "MATH", "JSTF", "cmap", "name", "post",
                            "OS/2", "gasp", "hdmx", "VDMX", "LTSH", "DSIG", "kern", "vhea", "vmtx",
                            "VORG", "COLR", "CPAL", "CBDT", "CBLC", "SVG ", "sbix", "STAT", "fvar",
                            "gvar", "avar", "cvar", "HVAR", "MVAR", "VVAR", "meta", "PCLT"})
        hb_set_add(dropped, hb_tag_from_string(tag, -1));
    return input;
}

/// A font file with only the glyphs of a code table.
class FontFile {
public:
    FontFile(hb_face_t* face, const CodeTable& codes) {
        const InputHandle input = InputFor(codes);
        plan_.reset(input ? hb_subset_plan_create_or_fail(face, input.get()) : nullptr);
        const FaceHandle subset(plan_ ? hb_subset_plan_execute_or_fail(plan_.get()) : nullptr);
        if (!subset) throw Error("A font cannot be put into the file.");
        bytes_.reset(HasTable(face, kGlyf) ? hb_face_reference_blob(subset.get())
                                           : hb_face_reference_table(subset.get(), kCff));
    }

    /// Returns a TrueType font, or only the CFF table.
    std::string_view Bytes() const {
        unsigned length = 0;
        const char* const data = hb_blob_get_data(bytes_.get(), &length);
        return {data, length};
    }
    /// Returns the index in the subset of a glyph of the font.
    unsigned PlaceOf(hb_codepoint_t glyph) const {
        return hb_map_get(hb_subset_plan_old_to_new_glyph_mapping(plan_.get()), glyph);
    }

private:
    PlanHandle plan_;
    BlobHandle bytes_;
};

/// Returns six letters that identify a subset of a font; the same subset gives the same letters.
std::string TagOf(const Subset& subset) {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a
    const auto mix = [&](std::uint64_t value) { hash = (hash ^ value) * 1099511628211U; };
    mix(static_cast<std::uint64_t>(subset.name));
    for (const auto& entry : subset.codes.Entries()) mix(entry.glyph);
    std::string tag;
    for (int i = 0; i < 6; ++i, hash /= 26) tag += static_cast<char>('A' + hash % 26);
    return tag + '+';
}

unsigned CidOf(const FreeTypeFace& face, hb_codepoint_t glyph) {
    FT_UInt cid = 0;
    FT_Get_CID_From_Glyph_Index(face.Get(), glyph, &cid);
    return cid;
}

struct NumberedGlyph {
    unsigned number;  ///< The glyph's number (CID) in the PDF file.
    unsigned place;   ///< The glyph's index in the font file.
    const CodeTable::Entry* entry;
};

/// Returns the glyphs sorted by number. The number of a TrueType glyph is its code, because some
/// readers use the number as a code to find the text of a glyph.
std::vector<NumberedGlyph> NumberGlyphs(const CodeTable& codes, const FontFile& font,
                                        PangoFont* pangoFont, EmbeddedFont::Outlines outlines) {
    const FreeTypeFace face(pangoFont);
    std::vector<NumberedGlyph> glyphs;
    for (const auto& entry : codes.Entries()) {
        const unsigned place = font.PlaceOf(entry.glyph);
        unsigned number = place;
        if (outlines == EmbeddedFont::Outlines::TrueType) number = entry.code.Number();
        if (outlines == EmbeddedFont::Outlines::CffNumbers) number = CidOf(face, entry.glyph);
        glyphs.push_back({number, place, &entry});
    }
    std::ranges::stable_sort(glyphs, {}, &NumberedGlyph::number);
    return glyphs;
}

/// Writes the map from codes to glyph numbers.
int WriteCodes(ObjectFile& file, const CodeTable& codes, const std::vector<NumberedGlyph>& glyphs) {
    std::vector<Mapping> mappings;
    for (const auto& glyph : glyphs)
        mappings.push_back({glyph.entry->code, ' ' + std::to_string(glyph.number)});
    return file.WriteStream(
        "/Type/CMap/CMapName/Codes"
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>",
        CodeMap(codes, MapTo::Glyphs, mappings));
}

/// Writes the table from numbers to glyph indexes of a TrueType font, two bytes each.
int WritePlaces(ObjectFile& file, const std::vector<NumberedGlyph>& glyphs) {
    std::string places(std::size_t{2} * (glyphs.back().number + 1), '\0');
    for (const auto& glyph : glyphs) {
        places[std::size_t{2} * glyph.number] = static_cast<char>(glyph.place >> 8);
        places[std::size_t{2} * glyph.number + 1] = static_cast<char>(glyph.place & 0xFF);
    }
    return file.WriteStream("", places);
}

std::string Widths(const std::vector<NumberedGlyph>& glyphs) {
    std::string list;
    unsigned last = 0;
    for (const auto& glyph : glyphs) {
        if (!list.empty() && glyph.number == last) continue;
        if (list.empty() || glyph.number != last + 1)
            list += (list.empty() ? "" : "]") + std::to_string(glyph.number) + '[';
        else
            list += ' ';
        list += Number(glyph.entry->width);
        last = glyph.number;
    }
    return list + ']';
}

CodeTable::Lengths LengthsFor(EmbeddedFont::Outlines outlines) {
    if (outlines == EmbeddedFont::Outlines::TrueType) return CodeTable::Lengths::OneAndTwo;
    return outlines == EmbeddedFont::Outlines::CffNumbers ? CodeTable::Lengths::Two
                                                          : CodeTable::Lengths::One;
}

}  // namespace

EmbeddedFont::Outlines EmbeddedFont::OutlinesOf(PangoFont* font) {
    if (HasTable(FaceOf(font), kGlyf)) return Outlines::TrueType;
    if (!HasTable(FaceOf(font), kCff)) return Outlines::None;
    FT_Bool numbers = 0;
    FT_Get_CID_Is_Internally_CID_Keyed(FreeTypeFace(font).Get(), &numbers);
    return numbers != 0 ? Outlines::CffNumbers : Outlines::CffNames;
}

EmbeddedFont::EmbeddedFont(PangoFont* font, Outlines outlines, FontNumbers& numbers)
    : Typeface(LengthsFor(outlines), numbers),
      outlines_(outlines),
      pangoFont_(font),
      face_(FaceOf(font)),
      font_(hb_font_create(face_)) {}

int EmbeddedFont::WidthOf(hb_codepoint_t glyph) {
    const double units = hb_font_get_glyph_h_advance(font_.get(), glyph);
    return static_cast<int>(std::lround(units * 1000 / hb_face_get_upem(face_)));
}

void EmbeddedFont::WriteSubset(ObjectFile& file, const Subset& subset) {
    const FontFile font(face_, subset.codes);
    const auto glyphs = NumberGlyphs(subset.codes, font, pangoFont_, outlines_);
    const std::string name = TagOf(subset) + FontName(face_);
    std::string inner = "<</Type/Font/Subtype/CIDFontType";
    inner += IsTrueType() ? "2/CIDToGIDMap " + Reference(WritePlaces(file, glyphs)) : "0";
    inner += "/BaseFont/" + name +
             "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor " +
             Reference(WriteDescriptor(file, font.Bytes(), name)) + "/W[" + Widths(glyphs) + "]>>";
    std::string whole = "<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding ";
    whole += Reference(WriteCodes(file, subset.codes, glyphs));
    whole += "/DescendantFonts[" + Reference(file.WriteObject(inner));
    whole += "]/ToUnicode " + Reference(WriteToUnicode(file, subset.codes)) + ">>";
    file.WriteObject(subset.object, whole);
}

int EmbeddedFont::WriteDescriptor(ObjectFile& file, std::string_view bytes,
                                  const std::string& name) {
    const std::string entries =
        IsTrueType() ? "/Length1 " + std::to_string(bytes.size()) : "/Subtype/CIDFontType0C";
    const std::string font = Reference(file.WriteStream(entries, bytes));
    return file.WriteObject("<</Type/FontDescriptor/FontName/" + name +
                            DescriptorEntries(pangoFont_) +
                            (IsTrueType() ? "/FontFile2 " : "/FontFile3 ") + font + ">>");
}

}  // namespace pdf
