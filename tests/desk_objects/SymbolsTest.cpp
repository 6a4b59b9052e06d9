#include <gtest/gtest.h>

#include "desk/objects/Box.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"

namespace {

std::shared_ptr<desk::TextEngine> Engine() {
    static const auto engine = std::make_shared<desk::TextEngine>();
    return engine;
}

TEST(TextSymbol, SharesItsFontAndColourUntilCopied) {
    desk::TextSymbol symbol(Engine());
    const auto font = std::make_shared<desk::Font>();
    symbol.SetFont(font);
    const auto copy = std::dynamic_pointer_cast<desk::TextSymbol>(symbol.Copy());
    symbol.SetSize(36);
    symbol.Color()->SetRGB(0xFF);
    EXPECT_EQ(font->Size(), 36);
    EXPECT_EQ(copy->Size(), 10);
    EXPECT_EQ(copy->Color()->RGB(), 0U);
}

TEST(TextSymbol, MeasuresWithTheFontAsItIsNow) {
    desk::TextSymbol symbol(Engine());
    const auto small = symbol.MeasureText(0, nullptr, "Abbey Road");
    symbol.Font()->SetSize(20);
    const auto large = symbol.MeasureText(0, nullptr, "Abbey Road");
    EXPECT_GT(small.xSize, 10);
    EXPECT_NEAR(large.xSize, 2 * small.xSize, 0.01 * large.xSize);
}

TEST(TextSymbol, TakesMarkupForCharacters) {
    desk::TextSymbol symbol(Engine());
    EXPECT_EQ(symbol.PlainText("<b>A & B</b> \\n").plain, "<b>A & B</b> \\n");
}

TEST(TextSymbol, RefusesWhatItCannotDrawWith) {
    desk::TextSymbol symbol(Engine());
    EXPECT_THROW(symbol.SetFont(nullptr), host::Failure);
    EXPECT_THROW(symbol.SetColor(nullptr), host::Failure);
    EXPECT_THROW(symbol.SetHorizontalPlacement(4), host::Failure);
    EXPECT_THROW(symbol.SetVerticalPlacement(-1), host::Failure);
    EXPECT_NO_THROW(symbol.SetHorizontalPlacement(3));
}

TEST(FillSymbol, CopiesItsOutline) {
    desk::FillSymbol fill;
    EXPECT_FALSE(fill.Outline());
    fill.SetOutline(std::make_shared<desk::LineSymbol>());
    const auto copy = std::dynamic_pointer_cast<desk::FillSymbol>(fill.Copy());
    fill.Outline()->Color()->SetTransparent(true);
    ASSERT_TRUE(copy->Outline());
    EXPECT_FALSE(copy->Outline()->Color()->Transparent());
}

TEST(Envelope, KeepsItsLowerEdgeWhenTheHeightChanges) {
    desk::Envelope envelope(1, 2, 5, 4);
    envelope.SetHeight(3);
    EXPECT_EQ(envelope.YMin(), 2);
    EXPECT_EQ(envelope.YMax(), 5);
    envelope.Shift(0, -1);
    EXPECT_EQ(envelope.TopLeft()->X(), 1);
    EXPECT_EQ(envelope.TopLeft()->Y(), 4);
    EXPECT_EQ(envelope.Height(), 3);
}

TEST(HangingBox, HangsATextByItsPlacements) {
    struct Case {
        int horizontal;
        int vertical;
        double angle;
        desk::Box box;
    };
    // A text of 2 by 1 inches.
    const host::TextExtent extent{144, 72};
    const Case cases[] = {{0, 0, 0, {0, -1, 2, 0}},      {1, 1, 0, {-1, -0.5, 1, 0.5}},
                          {2, 3, 0, {-2, 0, 0, 1}},      {3, 2, 0, {0, 0, 2, 1}},
                          {0, 3, 90, {-1, 0, 0, 2}},     {0, 0, 180, {-2, 0, 0, 1}},
                          {1, 1, 90, {-0.5, -1, 0.5, 1}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.horizontal << ' ' << c.vertical << ' ' << c.angle);
        const auto box = desk::HangingBox(extent, c.horizontal, c.vertical, c.angle);
        EXPECT_NEAR(box.xmin, c.box.xmin, 1e-12);
        EXPECT_NEAR(box.ymin, c.box.ymin, 1e-12);
        EXPECT_NEAR(box.xmax, c.box.xmax, 1e-12);
        EXPECT_NEAR(box.ymax, c.box.ymax, 1e-12);
    }
}

}  // namespace
