#include "desk/text/WholeLetters.h"

#include <algorithm>

namespace desk {
namespace {

/// Lowest lead byte of a combining mark in UTF-8.
constexpr unsigned char kLeastLeadByteOfMark = 0xCC;

bool IsMark(gunichar character) {
    return g_unichar_combining_class(character) > 0;
}

bool Has(const ResolvedFont& font, gunichar character) {
    hb_codepoint_t glyph = 0;
    return hb_font_get_nominal_glyph(font.shaping, character, &glyph) != 0;
}

bool HasAll(const ResolvedFont& font, const std::string& letter) {
    for (const char* place = letter.c_str(); *place; place = g_utf8_next_char(place))
        if (!Has(font, g_utf8_get_char(place))) return false;
    return true;
}

/// Returns the end of a letter and its marks.
const char* EndOfLetter(const char* place) {
    const char* end = g_utf8_next_char(place);
    while (*end && IsMark(g_utf8_get_char(end))) end = g_utf8_next_char(end);
    return end;
}

struct FontSearch {
    const std::string& letter;
    std::string family;
};

gboolean StopAtFontWithAll(PangoFontset* /*fonts*/, PangoFont* font, gpointer data) {
    auto& search = *static_cast<FontSearch*>(data);
    for (const char* place = search.letter.c_str(); *place; place = g_utf8_next_char(place))
        if (!pango_font_has_char(font, g_utf8_get_char(place))) return FALSE;
    const FontDescriptionHandle description(pango_font_describe(font));
    if (const char* family = pango_font_description_get_family(description.get()))
        search.family = family;
    return TRUE;
}

}  // namespace

std::string WholeLetters::Of(const ResolvedFont& font, std::string text,
                             PangoAttrList* attributes) {
    composed_.clear();
    const auto mayBeMark = [](char byte) {
        return static_cast<unsigned char>(byte) >= kLeastLeadByteOfMark;
    };
    if (std::ranges::none_of(text, mayBeMark)) return text;
    std::string whole;
    for (const char* place = text.c_str(); *place;) {
        const char* const end = EndOfLetter(place);
        std::string letter(place, end);
        const bool marked = end != g_utf8_next_char(place);
        if (marked && Has(font, g_utf8_get_char(place)) && !HasAll(font, letter))
            letter = Mended(font, std::move(letter), whole.size(), attributes);
        whole += letter;
        place = end;
    }
    return whole;
}

/// Returns the letter in a form, or with a font, that has all of it. It starts at `start`.
std::string WholeLetters::Mended(const ResolvedFont& font, std::string letter, std::size_t start,
                                 PangoAttrList* attributes) {
    const GStringHandle composed(g_utf8_normalize(letter.c_str(), -1, G_NORMALIZE_NFC));
    if (composed && HasAll(font, composed.get())) {
        std::string whole = composed.get();
        composed_.push_back({start, whole.size(), std::move(letter)});
        return whole;
    }
    const std::string& family = FamilyFor(font, letter);
    if (family.empty()) return letter;
    PangoAttribute* const attribute = pango_attr_family_new(family.c_str());
    attribute->start_index = static_cast<guint>(start);
    attribute->end_index = static_cast<guint>(start + letter.size());
    pango_attr_list_insert(attributes, attribute);
    return letter;
}

std::string WholeLetters::Written(std::string_view part, std::size_t start) const {
    std::string written;
    std::size_t at = 0;
    for (auto next = std::ranges::lower_bound(composed_, start, {}, &Composed::start);
         next != composed_.end() && next->start < start + part.size(); ++next) {
        written.append(part.substr(at, next->start - start - at)).append(next->written);
        at = next->start + next->length - start;
    }
    return written.append(part.substr(std::min(at, part.size())));
}

const std::string& WholeLetters::FamilyFor(const ResolvedFont& font, std::string_view letter) {
    const auto [known, isNew] = families_.try_emplace({font.number, std::string(letter)});
    if (!isNew) return known->second;
    const GObjectHandle<PangoFontset> fonts(
        pango_font_map_load_fontset(pango_context_get_font_map(context_), context_,
                                    font.description.get(), pango_context_get_language(context_)));
    FontSearch search{known->first.second, {}};
    pango_fontset_foreach(fonts.get(), StopAtFontWithAll, &search);
    known->second = std::move(search.family);
    return known->second;
}

}  // namespace desk
