// The quick ways of setting plain text must give exactly what a full layout gives.
#include <algorithm>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <span>

#include "desk/text/DirectShaper.h"
#include "desk/text/LayoutShaper.h"
#include "support/FixedSeed.h"
#include "support/Utf8.h"

namespace {

using desk::PlainClass;

std::vector<std::string> CharactersOf(const desk::ResolvedFont& font, PlainClass own) {
    std::vector<std::string> characters;
    for (char32_t c = 0; c < desk::kPlainTextLimit; ++c)
        if (font.plain[c] == own || (font.plain[c] == PlainClass::Common && c < 0x80))
            characters.push_back(support::Utf8(c));
    return characters;
}

/// Lines as they come in an index, with what joins or is kerned in many fonts well mixed in.
rc::Gen<std::string> AnyLine(const std::vector<std::string>& characters) {
    std::vector<std::string> pieces = characters;
    for (const char* piece : {" ", "  ", "1 1", "..", "...", "....", "........", ". ."})
        pieces.insert(pieces.end(), 5, piece);
    if (std::find(characters.begin(), characters.end(), "f") != characters.end())
        for (const char* piece : {"f", "ff", "fi", "fl", "ffi", "il", "AV", "To", "Rd", "ij", " A",
                                  "A ", "T ", "Y ", " Y", "P.", "r...."})
            pieces.insert(pieces.end(), 5, piece);
    return rc::gen::map(
        rc::gen::pair(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)),
                      rc::gen::inRange<std::size_t>(0, 12)),
        [](const std::pair<std::vector<std::string>, std::size_t>& chosen) {
            std::string line;
            for (const auto& piece : chosen.first) line += piece;
            return line + std::string(chosen.second, '.');
        });
}

using Places = std::vector<std::pair<unsigned long, desk::GlyphUnits>>;

Places PlacesOf(std::span<const desk::Glyph> glyphs) {
    Places places;
    for (const auto& glyph : glyphs)
        for (unsigned i = 0; i < glyph.count; ++i)
            places.emplace_back(glyph.id, glyph.x + desk::GlyphUnits{i} * glyph.step);
    return places;
}

Places PlacesOf(std::span<const desk::RunGlyph> glyphs) {
    Places places;
    for (const auto& glyph : glyphs) places.emplace_back(glyph.id, glyph.x);
    return places;
}

class PlainText : public testing::TestWithParam<const char*> {
protected:
    void CheckLine(const desk::ResolvedFont& font, const std::string& line) {
        const auto script = desk::PlainScript(line, font.plain);
        RC_ASSERT(script != PlainClass::None);
        const auto wanted = layout.Shape(font, line);
        RC_ASSERT(direct.Width(font, line) == wanted);
        desk::GlyphStore store;
        RC_ASSERT(direct.Place(font, line, store) == wanted);
        const auto set = store.Line({}, store.End());
        RC_ASSERT(set.text == line);
        const auto whole = shaper.Shape(font.shaping, desk::WritingOf(script), line, line.size());
        RC_ASSERT(PlacesOf(set.glyphs) == PlacesOf(whole.glyphs));
    }

    desk::FontCache fonts;
    desk::ShapedRunCache memory;
    desk::DirectShaper direct{memory};
    desk::RunShaper shaper;
    desk::LayoutShaper layout{fonts.Context()};
};

TEST_P(PlainText, WidthsAndGlyphsAreThoseOfALayout) {
    for (const auto& [bold, italic] :
         {std::pair{false, false}, std::pair{true, false}, std::pair{false, true}})
        for (const auto script :
             {PlainClass::Common, PlainClass::Latin, PlainClass::Greek, PlainClass::Cyrillic}) {
            const auto& font = fonts.Find({GetParam(), bold ? 7.3 : 8, bold, italic});
            const auto characters = CharactersOf(font, script);
            EXPECT_TRUE(rc::check([&] { CheckLine(font, *AnyLine(characters)); }))
                << bold << italic << static_cast<int>(script);
        }
}

INSTANTIATE_TEST_SUITE_P(Fonts, PlainText,
                         testing::Values("DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono",
                                         "Liberation Sans", "Liberation Serif", "Noto Sans",
                                         "Noto Serif"));

TEST(PlainTextScan, TellsPlainLinesFromOthers) {
    desk::FontCache fonts;
    const auto& font = fonts.Find({"DejaVu Sans", 8, false});
    const std::pair<const char*, PlainClass> lines[] = {
        {"4, 6; 9", PlainClass::Common},    {"Österåker (Ængø)", PlainClass::Latin},
        {"Αθήνα 12", PlainClass::Greek},    {"Москва", PlainClass::Cyrillic},
        {"Москва B-3", PlainClass::None},  // two scripts
        {"e\u0301", PlainClass::None},     // a combining mark
        {"a\u00ADb", PlainClass::None},    // a hyphen that does not show
        {"a\tb", PlainClass::None},         {"a\u2044b", PlainClass::None},  // a fraction
        {"اسم", PlainClass::None},          {"北京", PlainClass::None},
        {"\xC3", PlainClass::None},          // cut off
        {"\xC0\x80", PlainClass::None},      // longer than need be
        {"\xE2\x28\xA1", PlainClass::None},  // not UTF-8
    };
    for (const auto& [text, script] : lines)
        EXPECT_EQ(desk::PlainScript(text, font.plain), script) << text;
}

}  // namespace
