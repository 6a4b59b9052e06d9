#include <gtest/gtest.h>

#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"

namespace {

using host::Failure;

std::shared_ptr<desk::RectangleElement> Rectangle(double xmin, double ymin, double xmax,
                                                  double ymax) {
    auto element = std::make_shared<desk::RectangleElement>();
    element->SetGeometry(std::make_shared<desk::Envelope>(xmin, ymin, xmax, ymax));
    return element;
}

std::vector<double> BoundsOf(host::IHostElement& element) {
    const auto bounds = std::make_shared<desk::Envelope>(9, 9, 9, 9);
    element.MeasureBounds(nullptr, bounds);
    return {bounds->XMin(), bounds->YMin(), bounds->XMax(), bounds->YMax()};
}

TEST(GroupElement, MeasuresTheBoxAroundAllMembersHoweverDeep) {
    desk::GroupElement group;
    group.SetGeometry(std::make_shared<desk::Envelope>(0, 0, 8, 10));
    EXPECT_EQ(BoundsOf(group), (std::vector<double>{0, 0, 8, 10}));
    const auto inner = std::make_shared<desk::GroupElement>();
    inner->Add(Rectangle(3, 4, 5, 6));
    group.Add(inner);
    group.Add(Rectangle(2, 5, 4, 9));
    group.Add(std::make_shared<desk::GroupElement>());
    EXPECT_EQ(BoundsOf(group), (std::vector<double>{2, 4, 5, 9}));
}

TEST(TextElement, MeasuresTheTextWhereItHangsInTheFontAsItIs) {
    desk::TextElement element(std::make_shared<desk::TextEngine>());
    element.SetText("Abbey Road");
    element.SetGeometry(std::make_shared<desk::Point>(3, 5));
    const auto symbol = std::make_shared<desk::TextSymbol>(std::make_shared<desk::TextEngine>());
    symbol->SetHorizontalPlacement(2);
    symbol->SetVerticalPlacement(1);
    element.SetSymbol(symbol);
    const auto font = std::make_shared<desk::Font>();
    symbol->SetFont(font);
    for (const double points : {10.0, 20.0, 8.0}) {
        font->SetSize(points);
        EXPECT_EQ(symbol->Size(), points);
        const auto box = desk::HangingBox(symbol->MeasureText(0, nullptr, "Abbey Road"), 2, 1, 0);
        EXPECT_EQ(BoundsOf(element),
                  (std::vector<double>{3 + box.xmin, 5 + box.ymin, 3 + box.xmax, 5 + box.ymax}))
            << points;
    }
}

TEST(TextElement, HasADefaultSymbolOfItsOwnThatKnowsNoMarkup) {
    const auto engine = std::make_shared<desk::TextEngine>();
    const desk::TextElement first(engine);
    const desk::TextElement second(engine);
    first.Symbol()->SetSize(36);
    EXPECT_EQ(first.Symbol()->Size(), 36);
    EXPECT_EQ(second.Symbol()->Size(), 10);
    const auto parser = host::As<host::IHostTextParser>(second.Symbol());
    EXPECT_EQ(parser->PlainText("<b>A & B</b> \\n").plain, "<b>A & B</b> \\n");
}

TEST(Elements, RefuseWhatTheyCannotTake) {
    const auto group = std::make_shared<desk::GroupElement>();
    group->Add(Rectangle(0, 0, 1, 1));
    EXPECT_THROW(group->Add(nullptr), Failure);
    EXPECT_THROW(group->Add(group), Failure);
    EXPECT_THROW(group->Item(1), Failure);
    EXPECT_THROW(group->Item(-1), Failure);
    EXPECT_THROW(group->Remove(Rectangle(0, 0, 1, 1)), Failure);
    EXPECT_THROW(group->SetValue(1), Failure);
    EXPECT_NO_THROW(group->SetValue(0));

    const auto engine = std::make_shared<desk::TextEngine>();
    const auto point = std::make_shared<desk::Point>();
    const auto envelope = std::make_shared<desk::Envelope>();
    desk::TextElement text(engine);
    desk::RectangleElement rectangle;
    text.SetGeometry(point);
    rectangle.SetGeometry(envelope);
    EXPECT_THROW(text.SetGeometry(envelope), Failure);
    EXPECT_THROW(rectangle.SetGeometry(point), Failure);
    EXPECT_EQ(text.Geometry(), point) << "the very geometry that was set";
    EXPECT_EQ(rectangle.Geometry(), envelope);
    EXPECT_NO_THROW(text.SetGeometry(nullptr));

    desk::TextSymbol symbol(engine);
    EXPECT_THROW(symbol.SetFont(nullptr), Failure);
    EXPECT_THROW(symbol.SetColor(nullptr), Failure);
    EXPECT_THROW(symbol.SetHorizontalPlacement(4), Failure);
    EXPECT_THROW(symbol.SetVerticalPlacement(-1), Failure);
    EXPECT_NO_THROW(symbol.SetHorizontalPlacement(3));
}

TEST(HangingBox, HangsATextByItsPlacements) {
    // Horizontal and vertical placement, angle, and the box of a text of 2 by 1 inches.
    const std::tuple<int, int, double, desk::Box> cases[] = {
        {0, 0, 0, {0, -1, 2, 0}},      {1, 1, 0, {-1, -0.5, 1, 0.5}}, {2, 3, 0, {-2, 0, 0, 1}},
        {3, 2, 0, {0, 0, 2, 1}},       {0, 3, 90, {-1, 0, 0, 2}},     {0, 0, 180, {-2, 0, 0, 1}},
        {1, 1, 90, {-0.5, -1, 0.5, 1}}};
    for (const auto& [horizontal, vertical, angle, wanted] : cases) {
        SCOPED_TRACE(testing::Message() << horizontal << ' ' << vertical << ' ' << angle);
        const auto box = desk::HangingBox({144, 72}, horizontal, vertical, angle);
        for (const auto edge :
             {&desk::Box::xmin, &desk::Box::ymin, &desk::Box::xmax, &desk::Box::ymax})
            EXPECT_NEAR(box.*edge, wanted.*edge, 1e-12);
    }
}

}  // namespace
