#include "desk/text/PairTable.h"

#include <hb-ot.h>

namespace desk {
namespace {

/// Of runs of two characters their pair tells all.
constexpr std::size_t kPair = 2;

/// More runs than any index in one script should hold; past it they are learnt anew.
constexpr std::size_t kMostRuns = 8192;

/// Glyphs of the characters that a line of the script may hold.
SetHandle PlainGlyphs(const ResolvedFont& font, hb_script_t script) {
    SetHandle glyphs(hb_set_create());
    for (hb_codepoint_t letter = 0; letter < kPlainTextLimit; ++letter) {
        hb_codepoint_t glyph = 0;
        const hb_script_t own = ScriptOf(font.plain[letter]);
        if ((own == script || own == HB_SCRIPT_COMMON) &&
            hb_font_get_nominal_glyph(font.shaping, letter, &glyph))
            hb_set_add(glyphs.get(), glyph);
    }
    return glyphs;
}

/// How many bytes repeat the character that begins at the start and ends before the place. Dots are
/// half of the characters of an index.
std::size_t CountRepeats(std::string_view line, std::size_t start, std::size_t place) {
    if (place != start + 1) return 0;
    std::size_t end = place;
    while (end < line.size() && line[end] == line[start]) ++end;
    return end - place;
}

/// What the walks along a line are for. Visit tells of a glyph that begins at x, Repeat of further
/// equal ones, each a step from the one before. A walk of prefixes makes sure of each beginning of
/// a run of joining characters.
struct ForWidth {
    static constexpr bool kTakesRepeats = true;
    static constexpr bool kChecksPrefixes = false;
    void Visit(const auto& /*character*/, GlyphUnits /*x*/, std::string_view /*bytes*/) {}
    void Repeat(std::size_t /*count*/, GlyphUnits /*pen*/, int /*step*/) {}
};

struct ForWidthInScript : ForWidth {
    bool letters = false;
    void Visit(const auto& character, GlyphUnits /*x*/, std::string_view /*bytes*/) {
        letters = letters || character.letter;
    }
};

struct ForPrefixes {
    static constexpr bool kTakesRepeats = true;
    static constexpr bool kChecksPrefixes = true;
    const std::size_t* end;      // The next one of them,
    const std::size_t* lastEnd;  // and where they end.
    GlyphUnits* width;           // Where its width goes.
    std::size_t place = 0;       // Bytes of the line walked.

    void Visit(const auto& character, GlyphUnits x, std::string_view bytes) {
        place += bytes.size();
        TakeEndsHere(x + character.width);
    }
    void Repeat(std::size_t count, GlyphUnits pen, int step) {
        for (; count > 0; --count) {
            ++place;
            TakeEndsHere(pen += step);
        }
    }
    void TakeEndsHere(GlyphUnits pen) {
        for (; end != lastEnd && *end == place; ++end) *width++ = pen;
    }
};

struct ForGlyphs {
    static constexpr bool kTakesRepeats = true;
    static constexpr bool kChecksPrefixes = false;
    GlyphStore& glyphs;
    bool letters = false;

    void Visit(const auto& character, GlyphUnits x, std::string_view bytes) {
        glyphs.Add(character.glyph, x, 0, bytes.size());
        letters = letters || character.letter;
    }
    void Repeat(std::size_t count, GlyphUnits /*pen*/, int step) { glyphs.Repeat(count, step); }
};

}  // namespace

PairTable::PairTable(const ResolvedFont& font, const Writing& writing)
    : font_(font.shaping),
      plain_(font.plain),
      writing_(writing),
      rules_(ReadPairRules(hb_font_get_face(font.shaping), writing,
                           PlainGlyphs(font, writing.script).get())),
      buffer_(hb_buffer_create()),
      characters_(1) {
    if (rules_.positionsByPairs) pairs_.assign(kSlots * kSlots, kUnknownPair);
}

std::optional<GlyphUnits> PairTable::Width(std::string_view line) {
    return Walk(line, ForWidth{});
}

std::optional<GlyphUnits> PairTable::WidthInScript(std::string_view line) {
    ForWidthInScript visitor;
    const auto width = Walk(line, visitor);
    return visitor.letters ? width : std::nullopt;
}

bool PairTable::AddPrefixWidths(std::string_view line, std::span<const std::size_t> ends,
                                std::vector<GlyphUnits>& widths) {
    if (ends.empty()) return true;
    const std::size_t before = widths.size();
    widths.resize(before + ends.size());
    ForPrefixes visitor{ends.data(), ends.data() + ends.size(), widths.data() + before};
    visitor.TakeEndsHere(0);
    return Walk(line, visitor) && visitor.end == visitor.lastEnd;
}

std::optional<int> PairTable::Step(std::string_view first, std::string_view second) {
    if (!rules_.positionsByPairs) return std::nullopt;
    const Slot before = first.empty() ? 0 : SlotOf(first);
    const Slot slot = SlotOf(second);
    const Character& character = characters_[slot];
    if (character.kind == Kind::Shaped) return std::nullopt;
    if (first.empty()) return character.width;
    const Kind kindBefore = characters_[before].kind;
    const bool mayJoin = kindBefore == Kind::Joining && character.kind == Kind::Joining;
    if (kindBefore == Kind::Shaped || mayJoin) return std::nullopt;
    const std::int32_t pair = PairWidth(before, slot);
    if (pair == kShapedPair) return std::nullopt;
    return pair + character.width;
}

std::optional<GlyphUnits> PairTable::Place(std::string_view line, GlyphStore& glyphs) {
    return Place(line, glyphs, false);
}

std::optional<GlyphUnits> PairTable::PlaceInScript(std::string_view line, GlyphStore& glyphs) {
    return Place(line, glyphs, true);
}

std::optional<GlyphUnits> PairTable::Place(std::string_view line, GlyphStore& glyphs,
                                           bool needsLetters) {
    const auto start = glyphs.End();
    ForGlyphs visitor{glyphs};
    const auto width = Walk(line, visitor);
    if (!width || (needsLetters && !visitor.letters)) {
        glyphs.CutBack(start);
        return std::nullopt;
    }
    glyphs.AddText(line);
    return width;
}

template <class Visitor>
std::optional<GlyphUnits> PairTable::Walk(std::string_view line, Visitor&& visitor) {
    using For = std::remove_cvref_t<Visitor>;
    if (!rules_.positionsByPairs) return std::nullopt;
    GlyphUnits pen = 0;
    Slot before = 0;
    std::size_t runStart = 0;  // of joining characters side by side
    std::size_t runLength = 0;
    for (std::size_t place = 0; place < line.size();) {
        const std::size_t start = place;
        const char32_t letter = NextCharacter(line, place);
        if (letter >= kPlainTextLimit) return std::nullopt;
        const Slot slot = SlotOf(letter, line.substr(start, place - start));
        const Character& character = characters_[slot];
        if (character.kind == Kind::Shaped) return std::nullopt;
        if (before != 0) {
            const std::int32_t pair = PairWidth(before, slot);
            if (pair == kShapedPair) return std::nullopt;
            pen += pair;
        }
        visitor.Visit(character, pen, line.substr(start, place - start));
        pen += character.width;
        if constexpr (For::kTakesRepeats) {
            if (slot == before && character.kind == Kind::Steady) {
                const std::size_t repeats = CountRepeats(line, start, place);
                const int step = character.width + PairWidth(slot, slot);
                visitor.Repeat(repeats, pen, step);
                pen += static_cast<GlyphUnits>(repeats) * step;
                place += repeats;
            }
        }
        before = slot;
        if (character.kind == Kind::Joining) {
            if (runLength++ == 0) runStart = start;
            if (For::kChecksPrefixes && runLength > kPair &&
                !StaysUnjoined(line.substr(runStart, place - runStart)))
                return std::nullopt;
        } else {
            if (!For::kChecksPrefixes && runLength > kPair &&
                !StaysUnjoined(line.substr(runStart, start - runStart)))
                return std::nullopt;
            runLength = 0;
        }
    }
    if (!For::kChecksPrefixes && runLength > kPair && !StaysUnjoined(line.substr(runStart)))
        return std::nullopt;
    return pen;
}

PairTable::Slot PairTable::SlotOf(std::string_view character) {
    std::size_t end = 0;
    const char32_t letter = NextCharacter(character, end);
    return letter < kPlainTextLimit && end == character.size() ? SlotOf(letter, character) : 0;
}

PairTable::Slot PairTable::LearnCharacter(char32_t letter, std::string_view bytes) {
    const hb_script_t script = ScriptOf(plain_[letter]);
    const bool own = script == writing_.script;
    if (characters_.size() == kSlots || (!own && script != HB_SCRIPT_COMMON)) return 0;
    Character character{std::string(bytes)};
    character.letter = own && script != HB_SCRIPT_COMMON;
    hb_font_get_nominal_glyph(font_, letter, &character.glyph);
    character.width = WidthOfFew(bytes);
    const bool mark = hb_ot_layout_get_glyph_class(hb_font_get_face(font_), character.glyph) ==
                      HB_OT_LAYOUT_GLYPH_CLASS_MARK;
    const Slot slot = static_cast<Slot>(characters_.size());
    slots_[letter] = slot;
    characters_.push_back(std::move(character));
    Character& learnt = characters_.back();
    if (!mark && !hb_set_has(rules_.unsteady.get(), learnt.glyph) && ShapesAsPairs(bytes))
        learnt.kind = hb_set_has(rules_.joining.get(), learnt.glyph) ? Kind::Joining : Kind::Steady;
    return slot;
}

/// Of one or two characters, which 32 bits hold in any size.
std::int32_t PairTable::WidthOfFew(std::string_view characters) {
    return static_cast<std::int32_t>(ShapeLine(buffer_.get(), font_, writing_, characters));
}

std::int32_t PairTable::LearnPair(Slot first, Slot second) {
    const Character& one = characters_[first];
    const Character& two = characters_[second];
    const std::string both = one.bytes + two.bytes;
    std::int32_t& pair = pairs_[first * kSlots + second];
    pair = WidthOfFew(both) - one.width - two.width;
    if (!ShapesAsPairs(both)) pair = kShapedPair;
    return pair;
}

/// Whether characters that join with some stay themselves in this company.
bool PairTable::StaysUnjoined(std::string_view run) {
    if (runs_.size() > kMostRuns) runs_.clear();
    scratch_.assign(run);
    if (const auto known = runs_.find(scratch_); known != runs_.end()) return known->second;
    return runs_.emplace(run, ShapesAsPairs(run)).first->second;
}

/// Whether the shaper gives the glyphs and the places that follow from what is learnt. All
/// characters and pairs of the text are.
bool PairTable::ShapesAsPairs(std::string_view text) {
    const GlyphUnits width = ShapeLine(buffer_.get(), font_, writing_, text);
    const auto positions = Positions(buffer_.get());
    std::size_t place = 0;
    std::size_t count = 0;
    GlyphUnits expected = 0;
    GlyphUnits pen = 0;
    Slot before = 0;
    for (const auto& info : Glyphs(buffer_.get())) {
        if (info.cluster != place || place == text.size()) return false;
        const Slot slot = slots_[NextCharacter(text, place)];
        if (before != 0) expected += pairs_[before * kSlots + slot];
        const auto& position = positions[count++];
        if (info.codepoint != characters_[slot].glyph || position.y_offset != 0 ||
            pen + position.x_offset != expected)
            return false;
        pen += position.x_advance;
        expected += characters_[slot].width;
        before = slot;
    }
    return place == text.size() && width == expected;
}

}  // namespace desk
