#include "pdf/fonts/Typeface.h"

#include <algorithm>

#include "characters/Utf8.h"
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

/// PDF/A has no code that stands for U+0000, U+FEFF or U+FFFE. The second one shows nothing and
/// parts no words, as U+2060 does.
std::string ReadableText(std::string_view text) {
    std::string readable;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = characters::NextCodePoint(text, at);
        if (character == 0 || character == 0xFFFE)
            readable += "\uFFFD";
        else if (character == 0xFEFF)
            readable += "\u2060";
        else
            readable += text.substr(start, at - start);
    }
    return readable;
}

}  // namespace

Typeface::Place Typeface::Find(hb_codepoint_t glyph, std::string_view text) {
    for (const Subset& subset : subsets_)
        if (const auto* const entry = subset.codes.Find(glyph, text)) return {&subset, entry};
    if (text.empty())
        numbers_.file.Found().Add(Violation::Rule::NoCharacter, "a glyph stands for no character");
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
        AppendUtf16(value, ReadableText(entry.text));
        value += '>';
    }
    return file.WriteStream("", CodeMap(codes, MapTo::Texts, mappings));
}

}  // namespace pdf
