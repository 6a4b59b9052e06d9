#include <gtest/gtest.h>

#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "desk/text/TextEngine.h"
#include "host/Failure.h"

namespace {

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

TEST(GroupElement, KeepsTheOrderOfTheOthersWhenOneGoes) {
    desk::GroupElement group;
    std::vector<host::Ref<host::IHostElement>> members;
    for (int i = 0; i < 4; ++i) members.push_back(Rectangle(i, 0, i + 1, 1));
    for (const auto& member : members) group.Add(member);
    group.Add(members[1]);
    group.Remove(members[1]);
    ASSERT_EQ(group.Count(), 4);
    EXPECT_EQ(group.Item(0), members[0]);
    EXPECT_EQ(group.Item(1), members[2]);
    EXPECT_EQ(group.Item(2), members[3]);
    EXPECT_EQ(group.Item(3), members[1]);
    EXPECT_THROW(group.Item(4), host::Failure);
    EXPECT_THROW(group.Item(-1), host::Failure);
    EXPECT_THROW(group.Remove(Rectangle(0, 0, 1, 1)), host::Failure);
}

TEST(GroupElement, TakesNeitherNothingNorItself) {
    const auto group = std::make_shared<desk::GroupElement>();
    EXPECT_THROW(group->Add(nullptr), host::Failure);
    EXPECT_THROW(group->Add(group), host::Failure);
    EXPECT_THROW(group->SetValue(1), host::Failure);
    EXPECT_NO_THROW(group->SetValue(0));
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

TEST(TextElement, MeasuresTheTextWhereItHangs) {
    desk::TextElement element(std::make_shared<desk::TextEngine>());
    element.SetText("Abbey Road");
    element.SetGeometry(std::make_shared<desk::Point>(3, 5));
    element.Symbol()->SetVerticalPlacement(1);
    element.Symbol()->SetHorizontalPlacement(2);
    const auto extent = element.Symbol()->MeasureText(0, nullptr, "Abbey Road");
    const auto box = BoundsOf(element);
    EXPECT_NEAR(box[0], 3 - extent.xSize / 72, 1e-12);
    EXPECT_NEAR(box[1], 5 - extent.ySize / 144, 1e-12);
    EXPECT_NEAR(box[2], 3, 1e-12);
    EXPECT_NEAR(box[3], 5 + extent.ySize / 144, 1e-12);
}

TEST(TextElement, HasADefaultSymbolOfItsOwnThatParses) {
    const auto engine = std::make_shared<desk::TextEngine>();
    desk::TextElement first(engine);
    const desk::TextElement second(engine);
    first.Symbol()->SetSize(36);
    EXPECT_EQ(first.Symbol()->Size(), 36);
    EXPECT_EQ(second.Symbol()->Size(), 10);
    EXPECT_TRUE(host::As<host::IHostTextParser>(second.Symbol()));
    const auto shared = std::make_shared<desk::TextSymbol>(engine);
    first.SetSymbol(shared);
    EXPECT_EQ(first.Symbol(), shared);
}

TEST(Elements, TakeOnlyTheirKindOfGeometryAndKeepItAlive) {
    desk::TextElement text(std::make_shared<desk::TextEngine>());
    desk::RectangleElement rectangle;
    const auto point = std::make_shared<desk::Point>(1, 2);
    const auto envelope = std::make_shared<desk::Envelope>(1, 2, 3, 4);
    EXPECT_THROW(text.SetGeometry(envelope), host::Failure);
    EXPECT_THROW(rectangle.SetGeometry(point), host::Failure);
    text.SetGeometry(point);
    rectangle.SetGeometry(envelope);
    envelope->Shift(1, 1);
    EXPECT_EQ(text.Geometry(), point);
    EXPECT_EQ(BoundsOf(rectangle), (std::vector<double>{2, 3, 4, 5}));
    text.SetGeometry(nullptr);
    EXPECT_FALSE(text.Geometry());
}

TEST(Elements, CarryATagAndOneCustomValue) {
    desk::GroupElement group;
    EXPECT_TRUE(std::holds_alternative<host::Empty>(group.CustomProperty()));
    group.SetCustomProperty(std::int16_t{3});
    EXPECT_EQ(std::get<std::int16_t>(group.CustomProperty()), 3);
    group.SetName("FRAME");
    EXPECT_EQ(group.Name(), "FRAME");
}

TEST(ElementContainer, GivesNullAtTheEndAndStartsAgainAtReset) {
    const auto first = Rectangle(0, 0, 1, 1);
    desk::ElementContainer container({first});
    EXPECT_EQ(container.Next(), first);
    EXPECT_FALSE(container.Next());
    EXPECT_FALSE(container.Next());
    container.Reset();
    EXPECT_EQ(container.Next(), first);
}

}  // namespace
