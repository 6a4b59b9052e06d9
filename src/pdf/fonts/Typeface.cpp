#include "pdf/fonts/Typeface.h"

#include <algorithm>

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Appends lines in sections of at most 100 entries, the limit of a CMap.
void AppendSections(std::string& out, const std::string& kind,
                    const std::vector<std::string>& lines) {
    constexpr std::size_t kMost = 100;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i % kMost == 0)
            out += std::to_string(std::min(kMost, lines.size() - i)) + " begin" + kind + "\n";
        out += lines[i] + '\n';
        if ((i + 1) % kMost == 0 || i + 1 == lines.size()) out += "end" + kind + "\n";
    }
}

}  // namespace

Typeface::Place Typeface::Find(hb_codepoint_t glyph, std::string_view text) {
    for (const Subset& subset : subsets_)
        if (const auto* const entry = subset.codes.Find(glyph, text)) return {&subset, entry};
    const double width = WidthOf(glyph);
    if (!subsets_.empty())
        if (const auto* const entry = subsets_.back().codes.Add(glyph, text, width))
            return {&subsets_.back(), entry};
    Subset& subset = subsets_.emplace_back(lengths_, numbers_.next++, numbers_.file.NewObject());
    return {&subset, subset.codes.Add(glyph, text, width)};
}

std::string CodeMap(const CodeTable& codes, MapTo to, const std::vector<Mapping>& mappings) {
    const bool toGlyphs = to == MapTo::Glyphs;
    std::string map =
        "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>def\n/CMapName/";
    map += toGlyphs ? "Codes def\n/CMapType 1 def\n" : "Texts def\n/CMapType 2 def\n";
    AppendSections(map, "codespacerange", codes.Ranges());
    std::vector<std::string> lines;
    for (const auto& [code, value] : mappings) {
        std::string& line = lines.emplace_back("<");
        AppendHex(line, code.Number(), 2 * code.count);
        line += '>' + value;
    }
    AppendSections(map, toGlyphs ? "cidchar" : "bfchar", lines);
    return map + "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

int WriteToUnicode(ObjectFile& file, const CodeTable& codes) {
    std::vector<Mapping> mappings;
    for (const auto& entry : codes.Entries()) {
        if (entry.text.empty()) continue;
        std::string& value = mappings.emplace_back(Mapping{entry.code, "<"}).value;
        AppendUtf16(value, entry.text);
        value += '>';
    }
    return file.WriteStream("", CodeMap(codes, MapTo::Texts, mappings));
}

}  // namespace pdf
