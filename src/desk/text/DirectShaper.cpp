#include "desk/text/DirectShaper.h"

#include <algorithm>

namespace desk {
namespace {

static_assert(kGlyphUnitsPerPoint == PANGO_SCALE);

constexpr std::size_t kLatin1Limit = 0x100;
constexpr std::int32_t kUnknownStep = INT32_MIN;
constexpr std::int32_t kNoStep = INT32_MIN + 1;

/// The language that a layout gives to a run of the script, so that both choose the same forms.
hb_language_t SampleLanguage(PangoScript script) {
    PangoLanguage* const language = pango_script_get_sample_language(script);
    return hb_language_from_string((pango_language_to_string)(language), -1);
}

}  // namespace

DirectShaper::DirectShaper()
    : common_(hb_language_from_string(kTextLanguage, -1)),
      greek_(SampleLanguage(PANGO_SCRIPT_GREEK)),
      cyrillic_(SampleLanguage(PANGO_SCRIPT_CYRILLIC)),
      buffer_(hb_buffer_create()) {}

Writing DirectShaper::WritingOf(hb_script_t script) const {
    switch (script) {
        case HB_SCRIPT_GREEK:
            return {script, greek_};
        case HB_SCRIPT_CYRILLIC:
            return {script, cyrillic_};
        default:
            return {script, common_};
    }
}

DirectShaper::FontTables& DirectShaper::TablesOf(const ResolvedFont& font) {
    if (tables_.size() <= font.number) tables_.resize(font.number + 1);
    return tables_[font.number];
}

PairTable& DirectShaper::TableOf(const ResolvedFont& font, hb_script_t script) {
    FontTables& all = TablesOf(font);
    auto& table = script == HB_SCRIPT_LATIN      ? all.latin
                  : script == HB_SCRIPT_GREEK    ? all.greek
                  : script == HB_SCRIPT_CYRILLIC ? all.cyrillic
                                                 : all.common;
    if (!table) table = std::make_unique<PairTable>(font, WritingOf(script));
    return *table;
}

/// The table, which is then the one that lines are tried with first.
PairTable& DirectShaper::Remembered(const ResolvedFont& font, hb_script_t script) {
    PairTable& table = TableOf(font, script);
    if (script != HB_SCRIPT_COMMON) {
        last_ = &table;
        lastFont_ = font.number;
    }
    return table;
}

std::optional<GlyphUnits> DirectShaper::SumWidth(const ResolvedFont& font, hb_script_t script,
                                                 std::string_view line) {
    return Remembered(font, script).Width(line);
}

std::optional<GlyphUnits> DirectShaper::SumWidthAsBefore(const ResolvedFont& font,
                                                         std::string_view line) {
    if (!last_ || lastFont_ != font.number) return std::nullopt;
    return last_->WidthInScript(line);
}

bool DirectShaper::SumPrefixWidths(const ResolvedFont& font, std::string_view line,
                                   std::span<const std::size_t> ends,
                                   std::vector<GlyphUnits>& widths) {
    // A beginning without a letter is a line without script.
    const std::size_t letter = FirstLetter(line, font.plain);
    const bool lettersInAll = !ends.empty() && letter < ends.front();
    if (lettersInAll && last_ && lastFont_ == font.number &&
        last_->AddPrefixWidths(line, ends, widths))
        return true;
    widths.clear();
    const auto script = PlainScript(line, font.plain);
    if (!script) return false;
    const auto common =
        static_cast<std::size_t>(std::ranges::upper_bound(ends, letter) - ends.begin());
    return TableOf(font, HB_SCRIPT_COMMON)
               .AddPrefixWidths(line.substr(0, letter), ends.first(common), widths) &&
           TableOf(font, *script).AddPrefixWidths(line, ends.subspan(common), widths);
}

bool DirectShaper::SumSteps(const ResolvedFont& font, std::string_view line,
                            std::vector<host::TextStep>& steps) {
    ends_.clear();
    for (std::size_t place = 0; place < line.size(); ends_.push_back(place))
        NextCharacter(line, place);
    sums_.clear();
    if (!SumPrefixWidths(font, line, ends_, sums_)) return false;
    steps.clear();
    Letter before;
    GlyphUnits widthBefore = 0;
    std::size_t place = 0;
    for (const GlyphUnits width : sums_) {
        const std::size_t start = place;
        const char32_t code = NextCharacter(line, place);
        const Letter letter{code, line.substr(start, place - start)};
        const GlyphUnits step = width - widthBefore;
        steps.push_back({Points(step), GeneralStep(font, before, letter) == step});
        before = letter;
        widthBefore = width;
    }
    return true;
}

/// What a character adds after another in any line of Latin script, and in one without letters if
/// it can stand there; kNoStep where that hangs on more.
std::int32_t DirectShaper::GeneralStep(const ResolvedFont& font, const Letter& first,
                                       const Letter& second) {
    if (first.code >= kLatin1Limit || second.code >= kLatin1Limit)
        return FindGeneralStep(font, first, second);
    auto& steps = TablesOf(font).generalSteps;
    if (steps.empty()) steps.assign(kLatin1Limit * kLatin1Limit, kUnknownStep);
    const std::size_t place = first.code * kLatin1Limit + second.code;
    if (steps[place] != kUnknownStep) return steps[place];
    const std::int32_t step = FindGeneralStep(font, first, second);
    return TablesOf(font).generalSteps[place] = step;
}

std::int32_t DirectShaper::FindGeneralStep(const ResolvedFont& font, const Letter& first,
                                           const Letter& second) {
    const auto step = TableOf(font, HB_SCRIPT_LATIN).Step(first.bytes, second.bytes);
    const bool letters = FirstLetter(first.bytes, font.plain) < first.bytes.size() ||
                         FirstLetter(second.bytes, font.plain) < second.bytes.size();
    if (letters) return step.value_or(kNoStep);
    const auto without = TableOf(font, HB_SCRIPT_COMMON).Step(first.bytes, second.bytes);
    return step == without ? step.value_or(kNoStep) : kNoStep;
}

GlyphUnits DirectShaper::ShapedWidth(const ResolvedFont& font, hb_script_t script,
                                     std::string_view line) {
    return ShapeLine(buffer_.get(), font.shaping, WritingOf(script), line);
}

std::optional<GlyphUnits> DirectShaper::Place(const ResolvedFont& font, std::string_view line,
                                              GlyphStore& glyphs) {
    if (last_ && lastFont_ == font.number)
        if (const auto width = last_->PlaceInScript(line, glyphs)) return width;
    const auto script = PlainScript(line, font.plain);
    if (!script) return std::nullopt;
    if (const auto width = Remembered(font, *script).Place(line, glyphs)) return width;
    const GlyphUnits width = ShapedWidth(font, *script, line);
    AddShaped(line, glyphs);
    return width;
}

void DirectShaper::AddShaped(std::string_view line, GlyphStore& glyphs) {
    const auto infos = Glyphs(buffer_.get());
    const auto positions = Positions(buffer_.get());
    GlyphUnits pen = 0;
    for (std::size_t i = 0, first = 0; i < infos.size(); ++i) {
        glyphs.Add(infos[i].codepoint, pen + positions[i].x_offset, -positions[i].y_offset, 0);
        pen += positions[i].x_advance;
        const std::size_t end = i + 1 < infos.size() ? infos[i + 1].cluster : line.size();
        if (end == infos[first].cluster) continue;
        glyphs.Join(i + 1 - first, end - infos[first].cluster);
        first = i + 1;
    }
    glyphs.AddText(line);
}

}  // namespace desk
