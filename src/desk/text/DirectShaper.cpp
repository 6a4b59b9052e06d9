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
    const std::size_t dots = CountDotsBehindRuns(line);
    const std::string_view text = line.substr(0, line.size() - dots);
    const auto leader = [&](int step) { return static_cast<GlyphUnits>(dots) * step; };
    if (dots > 0 && last_.font == font.number && last_.text == text)
        return last_.width + leader(last_.dotStep);
    int step = 0;
    const auto width =
        Walk(font, line, [&](const ShapedRun& run, GlyphUnits /*x*/, std::size_t further) {
            if (further > 0) step = run.dotStep;
        });
    if (width && step != 0) last_ = {font.number, std::string(text), *width - leader(step), step};
    return width;
}

std::optional<GlyphUnits> DirectShaper::Place(const ResolvedFont& font, std::string_view line,
                                              GlyphStore& glyphs) {
    const auto start = glyphs.End();
    const auto add = [&](const ShapedRun& run, GlyphUnits x, std::size_t dots) {
        AddGlyphs(run.glyphs, x, glyphs);
        glyphs.Repeat(dots, run.dotStep);
    };
    const auto width = Walk(font, line, add);
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
                                             const Visitor& visit) {
    std::size_t dots = CountDotsBehindRuns(line);
    std::string_view cut = line.substr(0, line.size() - dots);
    const PlainClass script = PlainScript(cut, font.plain);
    if (script == PlainClass::None) return std::nullopt;
    const ScriptFont& scriptFont = FontFor(font, script, cut);
    GlyphUnits pen = 0;
    const auto take = [&](const ShapedRun& run, std::size_t further) {
        visit(run, pen, further);
        pen += run.width + static_cast<GlyphUnits>(further) * run.dotStep;
    };
    for (std::size_t start = 0, end = 0; start < cut.size(); start = end) {
        end = scriptFont.cutsAtBlanks ? EndOfWord(cut, start) : cut.size();
        const ShapedRun* run = FindAlone(scriptFont, cut, start, end);
        if (run)
            for (; cut[start] == ' '; ++start) take(scriptFont.Blank(), 0);
        else
            run = &FindInLine(scriptFont, cut, start, end);
        while (run->movesNext && end < cut.size()) {
            end = EndOfWord(cut, end);
            run = &FindInLine(scriptFont, cut, start, end);
        }
        if (dots > 0 && end == cut.size() && (run->dotStep == 0 || !scriptFont.cutsLeaders)) {
            cut = line;
            end = cut.size();
            dots = 0;
            run = &FindInLine(scriptFont, cut, start, end);
        }
        if (!run->hasGlyphs) return std::nullopt;
        take(*run, end == cut.size() ? dots : 0);
    }
    return pen;
}

/// The run of a piece of a line, shaped with regard to the blank behind it.
const ShapedRun& DirectShaper::FindInLine(const ScriptFont& scriptFont, std::string_view line,
                                          std::size_t start, std::size_t end) {
    const std::size_t behind = BlankAt(line, end);
    const std::string_view text = line.substr(start, end + behind - start);
    return cache_.Find({scriptFont.fontNumber, scriptFont.script, text, behind}, [&] {
        ShapedRun run = shaper_.Shape(scriptFont.font, scriptFont.writing, text, end - start);
        run.standsAlone = false;  // It was not set between blanks.
        return run;
    });
}

/// The run of the word in a piece of a line without the blanks before it, if it is the same with
/// and without blanks around it. Nothing if not.
const ShapedRun* DirectShaper::FindAlone(const ScriptFont& scriptFont, std::string_view line,
                                         std::size_t start, std::size_t end) {
    if (!scriptFont.cutsAtBlanks) return nullptr;
    const std::size_t word = std::min(line.find_first_not_of(' ', start), end);
    if (word == end || BlankAt(line, word) > 0 || BlankAt(line, end) > 1) return nullptr;
    const std::string_view text = line.substr(word, end - word);
    const ShapedRun& run = cache_.Find({scriptFont.fontNumber, scriptFont.script, text}, [&] {
        between_ = ' ';
        (between_ += text) += ' ';
        ShapedRun alone =
            shaper_.Shape(scriptFont.font, scriptFont.writing, between_, text.size() + 1, 1);
        if (alone.standsAlone) return alone;
        alone = shaper_.Shape(scriptFont.font, scriptFont.writing, text, text.size());
        alone.standsAlone = false;
        return alone;
    });
    return run.standsAlone ? &run : nullptr;
}

const DirectShaper::ScriptFont& DirectShaper::FontFor(const ResolvedFont& font, PlainClass script,
                                                      std::string_view line) {
    const std::size_t place = font.number * kPlainClassEnd + static_cast<std::size_t>(script);
    if (fonts_.size() <= place) fonts_.resize(place + 1);
    ScriptFont& scriptFont = fonts_[place];
    if (!scriptFont.font) {
        scriptFont = {font.shaping, font.number, script, WritingOf(script)};
        TryLeader(scriptFont);
    }
    if (!scriptFont.blanksTried && EndOfWord(line, 0) < line.size()) TryBlanks(font, scriptFont);
    return scriptFont;
}

void DirectShaper::TryLeader(ScriptFont& scriptFont) {
    GlyphStore leader;
    AddGlyphs(shaper_.Shape(scriptFont.font, scriptFont.writing, kLeader, kLeader.size()).glyphs, 0,
              leader);
    scriptFont.cutsLeaders = leader.End().glyphs == 2;
}

/// Sets a line cut into words and as a whole.
void DirectShaper::TryBlanks(const ResolvedFont& font, ScriptFont& scriptFont) {
    scriptFont.blanksTried = true;
    const ShapedRun blank = shaper_.Shape(scriptFont.font, scriptFont.writing, " ", 1);
    scriptFont.blankWidth = blank.width;
    scriptFont.blankGlyph = blank.glyphs[0];
    if (BlankMayJoin(scriptFont.font, scriptFont.writing)) return;
    const std::string line = BlankTrial(font.plain, scriptFont.script);
    scriptFont.cutsAtBlanks = true;
    ShapedRunCache words;
    DirectShaper trial(words);
    trial.fonts_ = fonts_;
    scriptFont.cutsAtBlanks =
        trial.Width(font, line) ==
        shaper_.Shape(scriptFont.font, scriptFont.writing, line, line.size()).width;
}

}  // namespace desk
