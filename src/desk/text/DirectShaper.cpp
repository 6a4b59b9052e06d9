#include "desk/text/DirectShaper.h"

#include <algorithm>

namespace desk {
namespace {

static_assert(kGlyphUnitsPerPoint == PANGO_SCALE);

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

PairTable& DirectShaper::TableOf(const ResolvedFont& font, hb_script_t script) {
    if (tables_.size() <= font.number) tables_.resize(font.number + 1);
    FontTables& all = tables_[font.number];
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

std::optional<int> DirectShaper::SumWidth(const ResolvedFont& font, hb_script_t script,
                                          std::string_view line) {
    return Remembered(font, script).Width(line);
}

std::optional<int> DirectShaper::SumWidthAsBefore(const ResolvedFont& font, std::string_view line) {
    if (!last_ || lastFont_ != font.number) return std::nullopt;
    return last_->WidthInScript(line);
}

bool DirectShaper::SumPrefixWidths(const ResolvedFont& font, std::string_view line,
                                   std::span<const std::size_t> ends, std::vector<int>& widths) {
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

std::optional<int> DirectShaper::Step(const ResolvedFont& font, std::string_view first,
                                      std::string_view second) {
    const auto step = TableOf(font, HB_SCRIPT_LATIN).Step(first, second);
    const bool letters = FirstLetter(first, font.plain) < first.size() ||
                         FirstLetter(second, font.plain) < second.size();
    if (letters || step == TableOf(font, HB_SCRIPT_COMMON).Step(first, second)) return step;
    return std::nullopt;
}

int DirectShaper::ShapedWidth(const ResolvedFont& font, hb_script_t script, std::string_view line) {
    return ShapeLine(buffer_.get(), font.shaping, WritingOf(script), line);
}

std::optional<int> DirectShaper::Place(const ResolvedFont& font, std::string_view line,
                                       GlyphStore& glyphs) {
    if (last_ && lastFont_ == font.number)
        if (const auto width = last_->PlaceInScript(line, glyphs)) return width;
    const auto script = PlainScript(line, font.plain);
    if (!script) return std::nullopt;
    if (const auto width = Remembered(font, *script).Place(line, glyphs)) return width;
    const int width = ShapedWidth(font, *script, line);
    AddShaped(line, glyphs);
    return width;
}

void DirectShaper::AddShaped(std::string_view line, GlyphStore& glyphs) {
    const auto infos = Glyphs(buffer_.get());
    const auto positions = Positions(buffer_.get());
    int pen = 0;
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
