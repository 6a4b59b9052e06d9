#include <cairo.h>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "desk/text/CairoGlyphs.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"
#include "support/InkBox.h"

namespace {

using desk::FontSpec;
using desk::TextEngine;
using desk::TextPlacement;

const FontSpec kSans{"DejaVu Sans", 10, false};

TEST(Measure, CountsLinesAndTakesTheWidest) {
    TextEngine engine;
    const double line = engine.Measure(kSans, "x").ySize;
    const double wide = engine.Measure(kSans, "wide line").xSize;
    struct Text {
        const char* text;
        double width;
        int lines;
    };
    const Text texts[] = {
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
    for (const auto& text : texts) {
        const auto size = engine.Measure(kSans, text.text);
        EXPECT_DOUBLE_EQ(size.xSize, text.width) << text.text;
        EXPECT_DOUBLE_EQ(size.ySize, text.lines * line) << text.text;
    }
    // Lines are as high whatever font stands in.
    for (const char* text :
         {"北京市", "東京 Tokyo", "مكة", "ירושלים", "ไทย", "दिल्ली", "\xFF\xFE"}) {
        const auto size = engine.Measure(kSans, text);
        EXPECT_DOUBLE_EQ(size.ySize, line) << text;
        EXPECT_GT(size.xSize, 10) << text;
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
            std::string part;
            for (int i = 0; i < 100; ++i) part += character;
            std::string line;
            for (int i = 0; i < 64; ++i) line += part;
            const double width = engine.Measure(large, part).xSize;
            EXPECT_NEAR(engine.Measure(large, line).xSize / (64 * width), 1, 0.01) << character;
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

struct Ink {
    double left, top, right, bottom;
};

/// Where a drawn text leaves ink, in points from its point.
Ink InkOf(TextEngine& engine, const std::string& text, const TextPlacement& placement) {
    constexpr int kSide = 800;
    constexpr double kScale = 4;
    const std::unique_ptr<cairo_surface_t, desk::Releaser<cairo_surface_destroy>> surface(
        cairo_image_surface_create(CAIRO_FORMAT_A8, kSide, kSide));
    const std::unique_ptr<cairo_t, desk::Releaser<cairo_destroy>> context(
        cairo_create(surface.get()));
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
    const std::string text = "HHHHHH\nHH";
    const auto size = engine.Measure(kSans, text);
    const double line = size.ySize / 2;
    const double gap = 1.2;  // points between a letter's edge and that of its box, at most
    struct Side {
        int placement;
        double start;  // of the box, as a share of its size
    };
    for (const Side across : {Side{0, 0}, Side{1, -0.5}, Side{2, -1}, Side{3, 0}})
        for (const Side down : {Side{0, 0}, Side{1, -0.5}, Side{3, -1}}) {
            const Ink ink = InkOf(engine, text, {across.placement, down.placement, 0});
            const double left = across.start * size.xSize;
            const double top = down.start * size.ySize;
            EXPECT_NEAR(ink.left, left, gap) << across.placement;
            EXPECT_NEAR(ink.right, left + size.xSize, gap) << across.placement;
            EXPECT_GT(ink.top, top) << down.placement;
            EXPECT_LT(ink.top, top + line / 2) << down.placement;
            EXPECT_LT(ink.bottom, top + size.ySize) << down.placement;
            EXPECT_GT(ink.bottom, top + line * 1.5) << down.placement;
        }
    EXPECT_NEAR(InkOf(engine, text, {0, 2, 0}).bottom, 0, 0.3) << "the last line's baseline";
}

TEST(Draw, LinesAlignWithinTheBox) {
    TextEngine engine;
    for (const int across : {0, 1, 2}) {
        // The second line alone shows where it stands.
        const Ink ink = InkOf(engine, "                \nHH", {across, 0, 0});
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
                const Ink ink = InkOf(engine, text, placement);
                const double over = 2.5;  // a font that stands in may be higher than the line
                EXPECT_GT(ink.left, box.left - over) << text << angle;
                EXPECT_LT(ink.right, box.right + over) << text << angle;
                EXPECT_GT(ink.top, box.top - over) << text << angle;
                EXPECT_LT(ink.bottom, box.bottom + over) << text << angle;
            }
    const Ink up = InkOf(engine, "HHHHHH", {0, 2, 90});
    EXPECT_LT(up.top, -30) << "counter-clockwise from the right is up";
    EXPECT_LT(up.right, 1);
}

}  // namespace
