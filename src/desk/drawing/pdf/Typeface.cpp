#include "desk/drawing/pdf/Typeface.h"

#include <vector>

#include "desk/drawing/pdf/Numbers.h"
#include "desk/drawing/pdf/Strings.h"

namespace desk::pdf {

Typeface::Place Typeface::Find(hb_codepoint_t glyph, std::string_view text) {
    for (const Subset& subset : subsets_)
        if (const auto* const entry = subset.codes.Find(glyph, text)) return {&subset, entry};
    const double width = WidthOf(glyph);
    if (!subsets_.empty())
        if (const auto* const entry = subsets_.back().codes.Add(glyph, text, width))
            return {&subsets_.back(), entry};
    const auto number = numbers_.Next();
    Subset& subset = subsets_.emplace_back(lengths_, number.name, number.object);
    return {&subset, subset.codes.Add(glyph, text, width)};
}

std::string MapHead(const CodeTable& codes, std::string_view name) {
    std::string head =
        "/CIDInit/ProcSet findresource begin\n12 dict begin\nbegincmap\n"
        "/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>def\n/CMapName/";
    head += name;
    head += " def\n/CMapType ";
    head += name == "Codes" ? "1" : "2";
    head += " def\n";
    AppendSections(head, codes.Ranges(), "codespacerange", [](std::string& out, auto range) {
        out += range;
        out += '\n';
    });
    return head;
}

std::string_view MapFoot() {
    return "endcmap\nCMapName currentdict/CMap defineresource pop\nend\nend\n";
}

int WriteToUnicode(ObjectFile& file, const CodeTable& codes) {
    std::vector<const CodeTable::Entry*> told;
    for (const auto& entry : codes.Entries())
        if (!entry.text.empty()) told.push_back(&entry);
    std::string map = MapHead(codes, "Texts");
    AppendSections(map, told, "bfchar", [](std::string& out, const CodeTable::Entry* entry) {
        out += '<';
        AppendHex(out, entry->code.Number(), 2 * entry->code.count);
        out += "><";
        AppendUtf16(out, entry->text);
        out += ">\n";
    });
    map += MapFoot();
    return file.WriteStream("", map);
}

}  // namespace desk::pdf
