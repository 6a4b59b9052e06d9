#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "desk/text/GlyphCanvas.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"

namespace tests {
namespace {

// What is shown, from left to right.
class Seen final : public desk::GlyphCanvas {
public:
    void Show(PangoFont* font, const desk::GlyphLine& line, const desk::Baseline& start) override {
        fonts_.insert(font);
        std::size_t at = 0;
        for (const desk::Glyph& glyph : line.glyphs)
            for (int i = 0; i < static_cast<int>(glyph.count); ++i) {
                const double x = start.x + desk::Points(glyph.x + desk::GlyphUnits{i} * glyph.step);
                pieces_.emplace_back(x, line.text.substr(at, glyph.bytes));
                at += glyph.bytes;
            }
    }
    void FinishGlyphs() override {}

    std::string Text() {
        std::ranges::stable_sort(pieces_, {}, &Piece::first);
        std::string text;
        for (const auto& piece : pieces_) text += piece.second;
        return text;
    }
    std::size_t GlyphCount() const { return pieces_.size(); }
    std::size_t FontCount() const { return fonts_.size(); }

private:
    using Piece = std::pair<double, std::string>;
    std::vector<Piece> pieces_;
    std::set<PangoFont*> fonts_;
};

Seen Draw(desk::TextEngine& engine, const std::string& text, int horizontal) {
    Seen seen;
    const auto& font = engine.Find({"Liberation Sans", 8, false});
    engine.Draw(seen, {&font, text, {horizontal, 1, 0}, 0, 0});
    return seen;
}

constexpr int kLeft = 0, kCenter = 1, kRight = 2, kJustify = 3;

// However a line is ordered, it is as wide as it was measured.
TEST(VisualOrder, OfNamesAndTheirLeaders) {
    using Case = std::tuple<const char*, int, const char*>;
    desk::TextEngine engine;
    for (const auto& [text, horizontal, seen] : {
             Case{"Abc....", kLeft, "Abc...."},
             Case{"Abc....", kRight, "Abc...."},
             // A name from right to left keeps its order, and its leader leads to the reference: to
             // the right in a column that begins at the left, to the left in one that begins there.
             Case{"שלום....", kLeft, "םולש...."},
             Case{"שלום....", kJustify, "םולש...."},
             Case{"שלום....", kRight, "....םולש"},
             Case{"שלום....", kCenter, "....םולש"},
             Case{"כביש 6 צפון....", kLeft, "ןופצ 6 שיבכ...."},
             // Brackets are shown mirrored, so that on paper they are (M5).
             Case{"טל 5 (M5)....", kLeft, ")M5( 5 לט...."},
             Case{"טל 5 (M5)....", kRight, "....)M5( 5 לט"},
             Case{"Road 7 שלום....", kLeft, "Road 7 םולש...."},
             // Lines without a leader, and the full stop of an abbreviation, are left alone.
             Case{"שלום", kLeft, "םולש"},
             Case{"רח.", kLeft, ".חר"},
             Case{"4 ב-5, 12 א-3", kLeft, "3-א 12 ,5-ב 4"},
             Case{"........", kRight, "........"},
             Case{"مكة 6....", kRight, "....6 ةكم"},
         }) {
        EXPECT_EQ(Draw(engine, text, horizontal).Text(), seen) << text << " " << horizontal;
        const auto& font = engine.Find({"DejaVu Sans", 8, false});
        desk::PlacedGlyphs texts;
        const auto box = engine.Set({&font, text, {horizontal, 1, 0}, 0, 0}, texts);
        EXPECT_DOUBLE_EQ(box.right - box.left, engine.Measure(font, text).xSize) << text;
    }
}

// Letters and their marks come from one font, which composes them where it can. Liberation Sans has
// many letters with accents, and combining marks only since version 2.
TEST(VisualOrder, LettersAreWhole) {
    // A text, another of the same width if there is one, and the greatest number of fonts.
    using Case = std::tuple<const char*, const char*, std::size_t>;
    desk::TextEngine engine;
    for (const auto& [text, same, fonts] : {
             Case{"E\u0301toile", "\u00C9toile", 1},
             Case{"A\u030A\u0301", "\u01FA", 1},
             Case{"A\u0301rb\u00E6r....", "\u00C1rb\u00E6r....", 1},
             Case{"G\u0303", "", 1},
             Case{"\u0430\u0301", "", 1},
             Case{"G\u0303uarani", "", 2},
         }) {
        const Seen seen = Draw(engine, text, kLeft);
        EXPECT_GE(seen.FontCount(), 1U) << text;
        EXPECT_LE(seen.FontCount(), fonts) << text;
        if (*same == 0) continue;
        const auto& font = engine.Find({"Liberation Sans", 8, false});
        const auto width = [&](const char* line) { return engine.Measure(font, line).xSize; };
        EXPECT_DOUBLE_EQ(width(text), width(same)) << text;
        EXPECT_EQ(seen.GlyphCount(), Draw(engine, same, kLeft).GlyphCount());
    }
}

}  // namespace
}  // namespace tests
