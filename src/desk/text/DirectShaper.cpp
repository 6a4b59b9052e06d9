#include "desk/text/DirectShaper.h"

#include <algorithm>

#include "desk/text/BlankRules.h"

namespace desk {
namespace {

/// A leader that a font leaves one dot behind the other.
constexpr std::string_view kLeader = "................";

/// All but the first three, with which the last run ends.
std::size_t CountDotsBehindRuns(std::string_view line) {
    constexpr std::size_t kInRun = 3;
    const std::size_t dots = line.size() - (line.find_last_not_of('.') + 1);
    return dots > kInRun ? dots - kInRun : 0;
}

constexpr std::size_t kLongestBlank = kNoBreakSpace.size();

/// Bytes of the blank at a place, also of one that keeps a line together; 0 where there is none.
std::size_t BlankAt(std::string_view line, std::size_t place) {
    if (place >= line.size()) return 0;
    if (line[place] == ' ') return 1;
    return line[place] == kNoBreakSpace[0] && line.substr(place).starts_with(kNoBreakSpace) ? 2 : 0;
}

/// Where the word ends that begins behind the blanks at the start.
std::size_t EndOfWord(std::string_view line, std::size_t start) {
    std::size_t end = start;
    while (const std::size_t blank = BlankAt(line, end)) end += blank;
    const auto mayBeBlank = [](char c) { return c == ' ' || c == kNoBreakSpace[0]; };
    while (end < line.size() && (!mayBeBlank(line[end]) || BlankAt(line, end) == 0)) ++end;
    return end;
}

/// Adds the glyphs of a run, the third and further ones of equal characters as repetitions.
void AddGlyphs(std::span<const RunGlyph> run, GlyphUnits start, GlyphStore& glyphs) {
    for (std::size_t i = 0; i < run.size(); ++i) {
        const RunGlyph& glyph = run[i];
        const auto isLike = [&](const RunGlyph& other) {
            return other.id == glyph.id && other.bytes == 1 && glyph.bytes == 1;
        };
        const bool repeats = i >= 2 && isLike(run[i - 1]) && isLike(run[i - 2]) &&
                             run[i - 1].x - run[i - 2].x == glyph.x - run[i - 1].x;
        if (repeats)
            glyphs.Repeat(1, glyph.x - run[i - 1].x);
        else
            glyphs.Add(glyph.id, start + glyph.x, 0, glyph.bytes);
    }
}

}  // namespace

std::optional<GlyphUnits> DirectShaper::Width(const ResolvedFont& font, std::string_view line) {
    return Walk(font, line, &last_, [](const ShapedRun&, GlyphUnits, std::size_t) {});
}

std::optional<GlyphUnits> DirectShaper::Place(const ResolvedFont& font, std::string_view line,
                                              GlyphStore& glyphs) {
    const auto start = glyphs.End();
    const auto add = [&](const ShapedRun& run, GlyphUnits x, std::size_t dots) {
        AddGlyphs(run.glyphs, x, glyphs);
        glyphs.Repeat(dots, run.dotStep);
    };
    const auto width = Walk(font, line, nullptr, add);
    if (width)
        glyphs.AddText(line);
    else
        glyphs.CutBack(start);
    return width;
}

/// Visits the runs of a line with their places and the numbers of dots that follow them. Returns
/// the width.
template <class Visitor>
std::optional<GlyphUnits> DirectShaper::Walk(const ResolvedFont& font, std::string_view line,
                                             LastLine* last, const Visitor& visit) {
    std::size_t dots = CountDotsBehindRuns(line);
    std::string_view cut = line.substr(0, line.size() - dots);
    if (const auto width = last ? last->Width(font.number, cut, dots) : std::nullopt) return width;
    const PlainClass script = PlainScript(cut, font.plain);
    if (script == PlainClass::None) return std::nullopt;
    const Hand& hand = HandOf(font, script);
    auto [start, pen] = last ? last->Skip(font.number, script, cut) : LastLine::Place{};
    const auto take = [&](const ShapedRun& run, std::size_t further) {
        visit(run, pen, further);
        pen += run.width + static_cast<GlyphUnits>(further) * run.dotStep;
    };
    for (std::size_t end = start; start < cut.size(); start = end) {
        if (last && start > 0) last->Add({start, pen});
        end = hand.cutsAtBlanks ? EndOfWord(cut, start) : cut.size();
        const ShapedRun* run = FindAlone(hand, cut, start, end);
        if (run)
            for (; cut[start] == ' '; ++start) take(hand.Blank(), 0);
        else
            run = &FindInLine(hand, cut, start, end);
        if (dots > 0 && end == cut.size() && (run->dotStep == 0 || !hand.cutsLeaders)) {
            cut = line;
            end = cut.size();
            dots = 0;
            last = nullptr;
            run = &FindInLine(hand, cut, start, end);
        }
        if (!run->hasGlyphs) return std::nullopt;
        if (last && end == cut.size())
            last->End(pen + run->width, hand.cutsLeaders ? run->dotStep : 0);
        take(*run, end == cut.size() ? dots : 0);
    }
    return pen;
}

/// The run of a piece of a line, shaped with regard to the blank behind it.
const ShapedRun& DirectShaper::FindInLine(const Hand& hand, std::string_view line,
                                          std::size_t start, std::size_t end) {
    const std::string_view text = line.substr(start, end + BlankAt(line, end) - start);
    return memory_.Find({hand.fontNumber, hand.script, text},
                        [&] { return shaper_.Shape(hand.font, hand.writing, text, end - start); });
}

/// The run of the word in a piece of a line without the blanks before it, if it is the same with
/// and without blanks around it. Nothing if not.
const ShapedRun* DirectShaper::FindAlone(const Hand& hand, std::string_view line, std::size_t start,
                                         std::size_t end) {
    if (!hand.cutsAtBlanks) return nullptr;
    const std::size_t word = std::min(line.find_first_not_of(' ', start), end);
    if (word == end || BlankAt(line, word) > 0 || BlankAt(line, end) > 1) return nullptr;
    const std::string_view text = line.substr(word, end - word);
    const ShapedRun& run = memory_.Find({hand.fontNumber, hand.script, text}, [&] {
        between_ = ' ';
        (between_ += text) += ' ';
        ShapedRun alone = shaper_.Shape(hand.font, hand.writing, between_, text.size() + 1, 1);
        if (alone.standsAlone) return alone;
        alone = shaper_.Shape(hand.font, hand.writing, text, text.size());
        alone.standsAlone = false;
        return alone;
    });
    return run.standsAlone ? &run : nullptr;
}

DirectShaper::LastLine::Place DirectShaper::LastLine::Skip(std::uint32_t font, PlainClass script,
                                                           std::string_view line) {
    if (font != font_ || script != script_) text_.clear();
    font_ = font;
    script_ = script;
    width_.reset();
    auto differ = text_.size();
    if (!line.starts_with(text_))
        differ = static_cast<std::size_t>(std::ranges::mismatch(text_, line).in2 - line.begin());
    // A word is set with regard to the blank behind it.
    while (!words_.empty() && words_.back().start + kLongestBlank > differ) words_.pop_back();
    text_ = line;
    if (words_.empty()) return {};
    const Place place = words_.back();
    words_.pop_back();
    return place;
}

const DirectShaper::Hand& DirectShaper::HandOf(const ResolvedFont& font, PlainClass script) {
    const std::size_t place = font.number * kPlainClassCount + static_cast<std::size_t>(script);
    if (hands_.size() <= place) hands_.resize(place + 1);
    if (!hands_[place].font) {
        hands_[place] = {font.shaping, font.number, script, WritingOf(script)};
        Learn(font, hands_[place]);
    }
    return hands_[place];
}

/// Tries both cuts.
void DirectShaper::Learn(const ResolvedFont& font, Hand& hand) {
    const auto shape = [&](std::string_view text) {
        return shaper_.Shape(hand.font, hand.writing, text, text.size());
    };
    GlyphStore leader;
    AddGlyphs(shape(kLeader).glyphs, 0, leader);
    hand.cutsLeaders = leader.End().glyphs == 2;
    const ShapedRun blank = shape(" ");
    hand.blankWidth = blank.width;
    hand.blankGlyph = blank.glyphs[0];
    if (BlankMayJoin(hand.font, hand.writing)) return;
    const std::string line = BlankTrial(font.plain, hand.script);
    hand.cutsAtBlanks = true;
    hand.cutsAtBlanks = Width(font, line) == shape(line).width;
    if (hand.cutsAtBlanks) return;
    memory_.Clear();  // Of words cut at blanks.
    last_ = {};
}

}  // namespace desk
