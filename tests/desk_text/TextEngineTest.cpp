#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

#include "desk/devices/CairoShapes.h"
#include "desk/text/CairoGlyphs.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"
#include "support/InkBox.h"
#include "support/Text.h"

namespace {

using desk::FontSpec;
using desk::TextEngine;
using desk::TextPlacement;

const FontSpec kSans{"DejaVu Sans", 10, false};

TEST(Measure, CountsLinesAndTakesTheWidest) {
    TextEngine engine;
    const double line = engine.Measure(kSans, "x").ySize;
    const double wide = engine.Measure(kSans, "wide line").xSize;
    const std::tuple<const char*, double, int> texts[] = {
        {"", 0, 1},
        {"\r", 0, 1},
        {"\n", 0, 2},
        {"wide line", wide, 1},
        {"wide line\r\nx", wide, 2},
        {"x\nwide line\r\n\r\nx", wide, 4},
        {"wide\r line", wide, 1},
        {"x\n", engine.Measure(kSans, "x").xSize, 2},
        {"\U000F0000\tb", engine.Measure(kSans, "\U000F0000 b").xSize, 1},
        {"a\u2028b", engine.Measure(kSans, "a b").xSize, 1},
    };
    for (const auto& [text, width, lines] : texts) {
        const auto size = engine.Measure(kSans, text);
        EXPECT_DOUBLE_EQ(size.xSize, width) << text;
        EXPECT_DOUBLE_EQ(size.ySize, lines * line) << text;
    }
    // Lines are as high whatever font stands in.
    for (const char* text :
         {"北京市", "東京 Tokyo", "مكة", "ירושלים", "ไทย", "दिल्ली", "\xFF\xFE"}) {
        const auto size = engine.Measure(kSans, text);
        EXPECT_DOUBLE_EQ(size.ySize, line) << text;
        EXPECT_GT(size.xSize, 10) << text;
    }
}

// A family without an italic face is slanted, which leaves its widths as they are.
TEST(Measure, ItalicHasTheWidthsOfItsFace) {
    TextEngine engine;
    const std::pair<const char*, bool> fonts[] = {
        {"Noto Serif", true}, {"Liberation Serif", true}, {"Noto Sans CJK JP", false}};
    for (const auto& [family, differs] : fonts)
        for (const char* text : {"Manifold....12", "M\u0301anifold"}) {
            const double upright = engine.Measure({family, 10, false}, text).xSize;
            const double italic = engine.Measure({family, 10, false, true}, text).xSize;
            EXPECT_EQ(italic != upright, differs) << family << text;
        }
}

TEST(Measure, SizesGrowWithTheFontAndFollowNoResolution) {
    TextEngine engine;
    const std::string text = "Avenue of Trees......12, C-4";
    const auto small = engine.Measure({"DejaVu Sans", 7, false}, text);
    const auto large = engine.Measure({"DejaVu Sans", 700, false}, text);
    EXPECT_NEAR(large.xSize / small.xSize, 100, 0.05);
    EXPECT_NEAR(large.ySize / small.ySize, 100, 0.05);
    EXPECT_GT(engine.Measure({"DejaVu Sans", 7, true}, text).xSize, small.xSize);
}

// Wider than 32 bits of 1024ths of a point hold, in each of the ways in which lines are measured.
TEST(Measure, LinesOfAnyLengthAreAsWideAsTheirParts) {
    for (const auto ways : {TextEngine::Measuring::Fast, TextEngine::Measuring::FullLayout}) {
        TextEngine engine(ways);
        const FontSpec large{"DejaVu Sans", 1000, false};
        for (const char* character : {"W", "fi", "Ж", "東", "ش", "a\u0301"}) {
            const auto width = [&](std::size_t count) {
                const std::string line(count, 'x');
                return engine.Measure(large, gazetteer::ReplaceAll(line, "x", character)).xSize;
            };
            EXPECT_NEAR(width(6400) / (64 * width(100)), 1, 0.01) << character;
        }
    }
}

TEST(Substitutions, NameFamiliesThatAreMissingOnce) {
    TextEngine engine;
    for (const char* family : {"DejaVu Sans", "dejavu sans", "sans-serif", "No Such Family",
                               "Helvetica", "No Such Family"})
        for (const double points : {8.0, 36.0}) engine.Measure({family, points, points > 8}, "x");
    const auto found = engine.Substitutions();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].wanted, "No Such Family");
    EXPECT_EQ(found[1].wanted, "Helvetica");
    for (const auto& one : found) {
        EXPECT_FALSE(one.used.empty());
        EXPECT_NE(one.used, one.wanted);
    }
}

/// Where a drawn text leaves ink, in points from its point.
desk::TextBox InkOf(TextEngine& engine, const std::string& text, const TextPlacement& placement) {
    constexpr int kSide = 800;
    constexpr double kScale = 4;
    const desk::CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, kSide, kSide));
    const desk::CairoContext context(cairo_create(surface.get()));
    cairo_translate(context.get(), kSide / 2, kSide / 2);
    cairo_scale(context.get(), kScale, kScale);
    desk::CairoGlyphs canvas(context.get());
    engine.Draw(canvas, {&engine.Find(kSans), text, placement, 0, 0});
    EXPECT_EQ(cairo_status(context.get()), CAIRO_STATUS_SUCCESS);
    cairo_surface_flush(surface.get());
    const unsigned char* const data = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    const auto box =
        support::FindInk(kSide, kSide, [&](int x, int y) { return data[y * stride + x] > 64; });
    const auto points = [](int pixel) { return (pixel - kSide / 2) / kScale; };
    return {points(box.left), points(box.top), points(box.right + 1), points(box.bottom + 1)};
}

TEST(Draw, InkStandsWhereThePlacementSays) {
    TextEngine engine;
    const std::string text = "HH.........\nHH";
    const auto size = engine.Measure(kSans, text);
    const double line = size.ySize / 2;
    const double gap = 1.2;  // points between a letter's edge and that of its box, at most
    // Placements, and where the box starts, as a share of its size.
    using Side = std::pair<int, double>;
    for (const auto& [across, leftShare] : {Side{0, 0}, Side{1, -0.5}, Side{2, -1}, Side{3, 0}})
        for (const auto& [down, topShare] : {Side{0, 0}, Side{1, -0.5}, Side{3, -1}}) {
            const auto ink = InkOf(engine, text, {across, down, 0});
            const double left = leftShare * size.xSize;
            const double top = topShare * size.ySize;
            EXPECT_NEAR(ink.left, left, gap) << across;
            EXPECT_NEAR(ink.right, left + size.xSize, gap) << across;
            EXPECT_NEAR(ink.top, top + line / 4, line / 4) << down;
            EXPECT_NEAR(ink.bottom, top + line * 1.75, line / 4) << down;
        }
    EXPECT_NEAR(InkOf(engine, text, {0, 2, 0}).bottom, 0, 0.3) << "the last line's baseline";
}

TEST(Draw, LinesAlignWithinTheBox) {
    TextEngine engine;
    for (const int across : {0, 1, 2}) {
        // The second line alone shows where it stands.
        const auto ink = InkOf(engine, "                \nHH", {across, 0, 0});
        EXPECT_NEAR(std::lerp(ink.left, ink.right, across / 2.0), 0, 1.2) << across;
    }
}

TEST(Draw, StaysWithinItsBoundsAtAnyAngle) {
    TextEngine engine;
    for (const char* text : {"SAMPLE PAGE", "Hxg\nAy", "北京", "مكة المكرمة"})
        for (const double angle : {0.0, 45.0, 90.0, 200.0, -30.0})
            for (const int across : {0, 1, 2}) {
                const TextPlacement placement{across, across == 2 ? 3 : across, angle};
                desk::PlacedGlyphs texts;
                const auto box = engine.Set({&engine.Find(kSans), text, placement, 0, 0}, texts);
                const auto ink = InkOf(engine, text, placement);
                // A font that stands in may be higher than the line.
                EXPECT_LT(std::max({box.left - ink.left, ink.right - box.right, box.top - ink.top,
                                    ink.bottom - box.bottom}),
                          2.5)
                    << text << angle;
            }
    const auto up = InkOf(engine, "HHHHHH", {0, 2, 90});
    EXPECT_LT(up.top, -30) << "counter-clockwise from the right is up";
    EXPECT_LT(up.right, 1);
}

}  // namespace
