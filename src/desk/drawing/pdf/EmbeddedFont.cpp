#include "desk/drawing/pdf/EmbeddedFont.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "desk/drawing/pdf/FontDescriptor.h"
#include "desk/drawing/pdf/FontSubset.h"
#include "desk/drawing/pdf/Numbers.h"

namespace desk::pdf {
namespace {

SetHandle GlyphsOf(const CodeTable& codes) {
    SetHandle glyphs(hb_set_create());
    for (const auto& entry : codes.Entries()) hb_set_add(glyphs.get(), entry.glyph);
    return glyphs;
}

/// Six letters that tell subsets of a font apart, the same for the same subset.
std::string TagOf(const Subset& subset) {
    std::uint64_t hash = 14695981039346656037U;  // FNV-1a
    const auto mix = [&](std::uint64_t value) { hash = (hash ^ value) * 1099511628211U; };
    mix(static_cast<std::uint64_t>(subset.name));
    for (const auto& entry : subset.codes.Entries()) mix(entry.glyph);
    std::string tag;
    for (int i = 0; i < 6; ++i, hash /= 26) tag += static_cast<char>('A' + hash % 26);
    return tag + '+';
}

/// The number by which the file calls a glyph, and its width.
struct CalledGlyph {
    unsigned number;
    const CodeTable::Entry* entry;
};

/// In the order of the numbers. Glyphs of a TrueType font are called by their codes, since some
/// readers look for the text of a glyph by its number among the codes.
std::vector<CalledGlyph> Call(const CodeTable& codes, const FontSubset& font, bool byCodes) {
    std::vector<CalledGlyph> glyphs;
    for (const auto& entry : codes.Entries())
        glyphs.push_back({byCodes ? entry.code.Number() : font.NumberOf(entry.glyph), &entry});
    std::ranges::stable_sort(glyphs, {}, &CalledGlyph::number);
    return glyphs;
}

/// What leads from codes to the numbers of glyphs.
int WriteCodes(ObjectFile& file, const CodeTable& codes, const std::vector<CalledGlyph>& glyphs) {
    std::string map = MapHead(codes, "Codes");
    AppendSections(map, glyphs, "cidchar", [](std::string& out, const CalledGlyph& glyph) {
        out += '<';
        AppendHex(out, glyph.entry->code.Number(), 2 * glyph.entry->code.count);
        out += "> ";
        AppendInteger(out, glyph.number);
        out += '\n';
    });
    map += MapFoot();
    return file.WriteStream(
        "/Type/CMap/CMapName/Codes"
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>",
        map);
}

/// What leads from the numbers of glyphs to their places in a TrueType font, of two bytes each.
int WritePlaces(ObjectFile& file, const std::vector<CalledGlyph>& glyphs, const FontSubset& font) {
    std::string places(std::size_t{2} * (glyphs.back().number + 1), '\0');
    for (const auto& glyph : glyphs) {
        const unsigned place = font.NumberOf(glyph.entry->glyph);
        places[std::size_t{2} * glyph.number] = static_cast<char>(place >> 8);
        places[std::size_t{2} * glyph.number + 1] = static_cast<char>(place & 0xFF);
    }
    return file.WriteStream("", places);
}

std::string Widths(const std::vector<CalledGlyph>& glyphs) {
    std::string list;
    unsigned last = 0;
    for (const auto& [number, entry] : glyphs) {
        if (!list.empty() && number == last) continue;
        if (list.empty() || number != last + 1) {
            list += list.empty() ? "" : "]";
            AppendInteger(list, number);
            list += '[';
        } else {
            list += ' ';
        }
        AppendNumber(list, entry->width);
        last = number;
    }
    return list + ']';
}

CodeTable::Lengths LengthsFor(FontSubset::Outlines outlines) {
    switch (outlines) {
        case FontSubset::Outlines::TrueType:
            return CodeTable::Lengths::OneAndTwo;
        case FontSubset::Outlines::CffNumbers:
            return CodeTable::Lengths::Two;
        default:
            return CodeTable::Lengths::One;
    }
}

}  // namespace

EmbeddedFont::EmbeddedFont(hb_face_t* face, FontSubset::Outlines outlines, FontNumbers& numbers)
    : Typeface(LengthsFor(outlines), numbers),
      outlines_(outlines),
      face_(face),
      font_(hb_font_create(face)) {}

int EmbeddedFont::WidthOf(hb_codepoint_t glyph) {
    const double units = hb_font_get_glyph_h_advance(font_.get(), glyph);
    return static_cast<int>(std::lround(units * 1000 / hb_face_get_upem(face_)));
}

void EmbeddedFont::Write(ObjectFile& file) {
    for (const Subset& subset : Subsets()) WriteSubset(file, subset);
}

void EmbeddedFont::WriteSubset(ObjectFile& file, const Subset& subset) {
    const FontSubset font(face_, GlyphsOf(subset.codes).get());
    const auto glyphs = Call(subset.codes, font, IsTrueType());
    const std::string name = TagOf(subset) + FontName(face_);
    std::string inner = "<</Type/Font/Subtype/CIDFontType";
    inner += IsTrueType() ? "2/CIDToGIDMap " : "0";
    if (IsTrueType()) AppendReference(inner, WritePlaces(file, glyphs, font));
    inner += "/BaseFont/" + name;
    inner += "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>/FontDescriptor ";
    AppendReference(inner, WriteDescriptor(file, font, name));
    inner += "/W[" + Widths(glyphs) + "]>>";
    std::string whole = "<</Type/Font/Subtype/Type0/BaseFont/" + name + "/Encoding ";
    AppendReference(whole, WriteCodes(file, subset.codes, glyphs));
    whole += "/DescendantFonts[";
    AppendReference(whole, file.WriteObject(inner));
    whole += "]/ToUnicode ";
    AppendReference(whole, WriteToUnicode(file, subset.codes));
    file.WriteObject(subset.object, whole + ">>");
}

int EmbeddedFont::WriteDescriptor(ObjectFile& file, const FontSubset& font,
                                  const std::string& name) {
    const std::string_view bytes = font.Bytes();
    std::string entries = "/Subtype/CIDFontType0C";
    if (IsTrueType()) entries = "/Length1 " + std::to_string(bytes.size());
    std::string descriptor = "<</Type/FontDescriptor/FontName/" + name + DescriptorEntries(face_);
    descriptor += IsTrueType() ? "/FontFile2 " : "/FontFile3 ";
    AppendReference(descriptor, file.WriteStream(entries, bytes));
    return file.WriteObject(descriptor + ">>");
}

}  // namespace desk::pdf
