// The quick ways of setting plain text must give exactly what a full layout gives.
#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck.h>

#include "desk/text/DirectShaper.h"
#include "desk/text/LayoutShaper.h"
#include "support/FixedSeed.h"
#include "support/Utf8.h"

namespace {

using desk::PlainClass;

constexpr std::array kFamilies = {"DejaVu Sans",     "DejaVu Serif",     "DejaVu Sans Mono",
                                  "Liberation Sans", "Liberation Serif", "Noto Sans",
                                  "Noto Serif"};

std::vector<std::string> CharactersOf(const desk::ResolvedFont& font, PlainClass own) {
    std::vector<std::string> characters;
    for (char32_t c = 0; c < desk::kPlainTextLimit; ++c)
        if (font.plain[c] == own || (font.plain[c] == PlainClass::Common && c < 0x80))
            characters.push_back(support::Utf8(c));
    return characters;
}

/// Lines as they come in an index, with what joins in many fonts well mixed in.
rc::Gen<std::string> AnyLine(const std::vector<std::string>& characters) {
    std::vector<std::string> pieces = characters;
    if (std::find(characters.begin(), characters.end(), "f") != characters.end())
        for (const char* piece :
             {"f", "ff", "fi", "fl", "ffi", "il", "AV", "To", "...", "Rd", "ij"})
            pieces.insert(pieces.end(), 5, piece);
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)),
                        [](const std::vector<std::string>& chosen) {
                            std::string line;
                            for (const auto& piece : chosen) line += piece;
                            return line;
                        });
}

struct Case {
    const char* family;
    PlainClass script;
    double points;
    bool bold;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.family << " " << c.points << (c.bold ? " bold" : "") << " script "
         << static_cast<int>(c.script);
}

std::vector<Case> Cases() {
    std::vector<Case> cases;
    for (const char* family : kFamilies)
        for (const auto script :
             {PlainClass::Common, PlainClass::Latin, PlainClass::Greek, PlainClass::Cyrillic})
            for (const bool bold : {false, true})
                cases.push_back({family, script, bold ? 7.3 : 8, bold});
    return cases;
}

class PlainText : public testing::TestWithParam<Case> {
protected:
    desk::FontCache fonts;
    desk::DirectShaper direct;
    desk::LayoutShaper layout{fonts.Context()};
    const desk::ResolvedFont& font =
        fonts.Find({GetParam().family, GetParam().points, GetParam().bold});
};

/// Visual places of the glyphs by the shaper alone, in points.
std::vector<std::pair<unsigned long, double>> Shaped(const desk::ResolvedFont& font,
                                                     hb_script_t script, const std::string& line) {
    const desk::BufferHandle buffer(hb_buffer_create());
    const char* const language = script == HB_SCRIPT_GREEK      ? "el"
                                 : script == HB_SCRIPT_CYRILLIC ? "ru"
                                                                : "en";
    desk::ShapeLine(buffer.get(), font.shaping, {script, hb_language_from_string(language, -1)},
                    line);
    std::vector<std::pair<unsigned long, double>> glyphs;
    int pen = 0;
    for (const auto& glyph : desk::Glyphs(buffer.get())) {
        const auto& position = desk::Positions(buffer.get())[glyphs.size()];
        glyphs.emplace_back(glyph.codepoint, (pen + position.x_offset) / 1024.0);
        pen += position.x_advance;
    }
    return glyphs;
}

TEST_P(PlainText, WidthsAndGlyphsAreThoseOfALayout) {
    const auto characters = CharactersOf(font, GetParam().script);
    int summed = 0;
    int lines = 0;
    EXPECT_TRUE(rc::check([&] {
        const std::string line = *AnyLine(characters);
        const auto script = desk::PlainScript(line, font.plain);
        RC_ASSERT(script.has_value());
        const auto wanted = layout.Shape(font, line);
        RC_ASSERT(direct.ShapedWidth(font, *script, line) == wanted);
        const auto sum = direct.SumWidth(font, *script, line);
        if (sum) RC_ASSERT(*sum == wanted);
        ++lines;
        summed += sum.has_value();
        desk::GlyphStore store;
        RC_ASSERT(direct.Place(font, line, store) == wanted);
        const auto set = store.Line({}, store.End());
        RC_ASSERT(set.text == line);
        std::vector<std::pair<unsigned long, double>> placed;
        for (const auto& glyph : set.glyphs)
            for (unsigned i = 0; i < glyph.count; ++i)
                placed.emplace_back(glyph.id,
                                    desk::Points(glyph.x + desk::GlyphUnits{i} * glyph.step));
        RC_ASSERT(placed == Shaped(font, *script, line));
    }));
    // Where nearly all lines were shaped, the sums would be tested in name only.
    EXPECT_GT(summed, lines / 10);
}

// Beginnings without a letter have no script, and some cut letters apart that join.
TEST_P(PlainText, BeginningsAreAsWideAsLinesOfTheirOwn) {
    const auto characters = CharactersOf(font, GetParam().script);
    int told = 0;
    EXPECT_TRUE(rc::check([&] {
        const std::string start = *rc::gen::element<std::string>("", "12 ", "..");
        const std::string line = start + *AnyLine(characters) + "....";
        std::vector<std::size_t> ends{0};
        for (std::size_t place = 0; place < line.size(); ends.push_back(place))
            desk::NextCharacter(line, place);
        std::vector<desk::GlyphUnits> widths;
        if (!direct.SumPrefixWidths(font, line, ends, widths)) return;
        ++told;
        RC_ASSERT(widths.size() == ends.size());
        for (std::size_t i = 0; i < ends.size(); ++i)
            RC_ASSERT(widths[i] == layout.Shape(font, line.substr(0, ends[i])));
    }));
    EXPECT_GT(told, 0);
}

using Pair = std::pair<std::string, std::string>;

/// The characters of a line, each with the one before it.
std::vector<Pair> PairsOf(const std::string& line) {
    std::vector<Pair> pairs;
    std::string before;
    for (std::size_t place = 0; place < line.size();) {
        const std::size_t start = place;
        desk::NextCharacter(line, place);
        pairs.emplace_back(before, line.substr(start, place - start));
        before = pairs.back().second;
    }
    return pairs;
}

// A general step is the same in lines of all kinds, with letters and without.
TEST_P(PlainText, GeneralStepsAreThoseOfEveryLine) {
    if (GetParam().script == PlainClass::Greek || GetParam().script == PlainClass::Cyrillic) return;
    const auto characters = CharactersOf(font, GetParam().script);
    std::map<Pair, double> general;
    int seenAgain = 0;
    EXPECT_TRUE(rc::check([&] {
        const std::string line = *AnyLine(characters);
        const auto pairs = PairsOf(line);
        std::vector<host::TextStep> steps;
        if (!direct.SumSteps(font, line, steps)) {
            const auto isGeneral = [&](const Pair& pair) { return general.contains(pair); };
            RC_ASSERT(!std::ranges::all_of(pairs, isGeneral));
            return;
        }
        RC_ASSERT(steps.size() == pairs.size());
        double width = 0;
        for (std::size_t i = 0; i < pairs.size(); ++i) {
            width += steps[i].width;
            if (const auto known = general.find(pairs[i]); known != general.end()) {
                ++seenAgain;
                RC_ASSERT(steps[i].width == known->second);
            } else if (steps[i].general) {
                general.emplace(pairs[i], steps[i].width);
            }
        }
        RC_ASSERT(width * desk::kGlyphUnitsPerPoint == layout.Shape(font, line));
    }));
    EXPECT_GT(seenAgain, 0);
}

INSTANTIATE_TEST_SUITE_P(Fonts, PlainText, testing::ValuesIn(Cases()));

TEST(PlainTextScan, TellsPlainLinesFromOthers) {
    desk::FontCache fonts;
    const auto& font = fonts.Find({"DejaVu Sans", 8, false});
    const std::pair<const char*, std::optional<hb_script_t>> lines[] = {
        {"Main St......4, B-3", HB_SCRIPT_LATIN},
        {"4, 6; 9", HB_SCRIPT_COMMON},
        {"", HB_SCRIPT_COMMON},
        {"Österåker (Ængø)", HB_SCRIPT_LATIN},
        {"Αθήνα 12", HB_SCRIPT_GREEK},
        {"Москва", HB_SCRIPT_CYRILLIC},
        {"Москва B-3", std::nullopt},  // two scripts
        {"e\u0301", std::nullopt},     // a combining mark
        {"a\u00ADb", std::nullopt},    // a hyphen that does not show
        {"a\tb", std::nullopt},
        {"a\u2044b", std::nullopt},  // a fraction
        {"اسم", std::nullopt},
        {"北京", std::nullopt},
        {"\xC3", std::nullopt},          // cut off
        {"\xC0\x80", std::nullopt},      // longer than need be
        {"\xE2\x28\xA1", std::nullopt},  // not UTF-8
    };
    for (const auto& [text, script] : lines)
        EXPECT_EQ(desk::PlainScript(text, font.plain), script) << text;
}

}  // namespace
