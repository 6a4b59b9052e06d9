#include "desk/text/BlankRules.h"

#include <glib.h>
#include <hb-aat.h>
#include <hb-ot.h>
#include <vector>

namespace desk {
namespace {

constexpr hb_codepoint_t kNoBreak = 0xA0;

struct Asked {
    SetHandle before{hb_set_create()}, input{hb_set_create()}, after{hb_set_create()};
};

/// Returns whether a lookup involves the glyph, other than in a kerning pair.
bool Asks(hb_face_t* face, hb_tag_t table, unsigned lookup, hb_codepoint_t glyph) {
    const Asked asked;
    hb_ot_layout_lookup_collect_glyphs(face, table, lookup, asked.before.get(), asked.input.get(),
                                       asked.after.get(), nullptr);
    return hb_set_has(asked.before.get(), glyph) || hb_set_has(asked.after.get(), glyph) ||
           (table == HB_OT_TAG_GSUB && hb_set_has(asked.input.get(), glyph));
}

}  // namespace

bool BlankMayJoin(hb_font_t* font, const Writing& writing) {
    hb_face_t* const face = hb_font_get_face(font);
    if (hb_aat_layout_has_substitution(face) || hb_aat_layout_has_positioning(face)) return true;
    hb_codepoint_t blank = 0;
    hb_codepoint_t noBreak = 0;
    hb_font_get_nominal_glyph(font, ' ', &blank);
    hb_font_get_nominal_glyph(font, kNoBreak, &noBreak);
    hb_segment_properties_t properties{};
    properties.direction = HB_DIRECTION_LTR;
    properties.script = writing.script;
    properties.language = writing.language;
    const ShapePlanHandle plan(hb_shape_plan_create_cached(face, &properties, nullptr, 0, nullptr));
    for (const hb_tag_t table : {HB_OT_TAG_GSUB, HB_OT_TAG_GPOS}) {
        const SetHandle lookups(hb_set_create());
        hb_ot_shape_plan_collect_lookups(plan.get(), table, lookups.get());
        for (hb_codepoint_t lookup = HB_SET_VALUE_INVALID; hb_set_next(lookups.get(), &lookup);)
            if (Asks(face, table, lookup, blank) || Asks(face, table, lookup, noBreak)) return true;
    }
    return false;
}

std::string BlankTrial(const PlainClasses& plain, PlainClass script) {
    constexpr std::size_t kMost = 62;
    constexpr std::size_t kLongest = 6;
    std::vector<std::string> words;
    for (char32_t code = '!'; code < kPlainTextLimit && words.size() < kMost; ++code) {
        if (plain[code] != script && !g_unichar_isdigit(code)) continue;
        char word[kLongest];
        const int length = g_unichar_to_utf8(code, word);
        words.emplace_back(word, static_cast<std::size_t>(length));
    }
    std::string line;
    for (const std::string_view blank : {std::string_view(" "), kNoBreakSpace}) {
        if (blank == kNoBreakSpace && plain[kNoBreak] == PlainClass::None) break;
        for (std::size_t first = 0; first < words.size(); ++first)
            for (std::size_t second = first; second < words.size(); ++second)
                for (const auto& word : {words[first], words[second]}) (line += word) += blank;
    }
    return line;
}

}  // namespace desk
