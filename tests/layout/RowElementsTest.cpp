#include <gtest/gtest.h>

#include "support/TestDesk.h"

namespace gazetteer {
namespace {

using support::TestDesk;

// One listing "Ash" with reference "4", columns 1.9 and 1 inches wide, margins as by default.
class RowElements : public ::testing::Test {
protected:
    RowElements() : element(desk.NewGazetteer(desk.ListingTable({{"Ash", "4"}}), 4, 5)) {
        desk.Column(element, "Page")->SetItem("ColumnWidth", 1.0);
    }
    void Draw() {
        CVNGazetteerManager manager(desk.HostRef());
        desk.Properties(element)->SetItem("HaveSavedListings", false);
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        ASSERT_EQ(desk.Dialogs().LastCause(), "");
    }
    host::Ref<host::IHostElement> Part(const char* group, int column, int part) {
        const auto row = TestDesk::Members(*element, group).at(0);
        const auto cell = host::As<host::IHostGroupElement>(row)->Item(column);
        return host::As<host::IHostGroupElement>(cell)->Item(part);
    }
    TestDesk desk;
    host::Ref<host::IHostGroupElement> element;
};

TEST_F(RowElements, AlignmentsAnchorTheText) {
    struct Case {
        const char* alignment;
        double x;
        int placement;
    };
    for (const Case& c : {Case{"Left", 0.05, 0}, Case{"Center", 0.95, 1}, Case{"Right", 1.85, 2},
                          Case{"Justify", 0.05, 3}}) {
        desk.Column(element, "Listing")->SetItem("Alignment", std::string(c.alignment));
        Draw();
        const auto text = host::As<host::IHostTextElement>(Part("ROWGROUP", 0, 1));
        const auto left = element->Geometry()->Bounds()->XMin();
        EXPECT_NEAR(host::As<host::IHostPoint>(text->Geometry())->X() - left, c.x, 1e-12)
            << c.alignment;
        EXPECT_EQ(text->Symbol()->HorizontalPlacement(), c.placement);
        EXPECT_EQ(text->Symbol()->VerticalPlacement(), 1);
    }
}

TEST_F(RowElements, BackgroundsShareTheHeightOfTheTallestCell) {
    desk.Column(element, "Listing")
        ->SetItem("Expression", std::string("one$$NEWLINEtwo$$NEWLINEthree"));
    Draw();
    const auto tall = desk.Bounds(*Part("ROWGROUP", 0, 0));
    const auto low = desk.Bounds(*Part("ROWGROUP", 1, 0));
    EXPECT_DOUBLE_EQ(tall->YMin(), low->YMin());
    EXPECT_DOUBLE_EQ(tall->YMax(), low->YMax());
    EXPECT_DOUBLE_EQ(tall->XMax(), low->XMin());
    // The text of the stretched cell stays at its top margin.
    const auto text = desk.Bounds(*Part("ROWGROUP", 1, 1));
    EXPECT_NEAR(low->YMax() - text->YMax(), 0.05, 1e-9);
}

TEST_F(RowElements, FillsByKindOfRow) {
    struct Case {
        bool color;
        const char* group;
        bool transparent;
        std::uint32_t rgb;
    };
    for (const Case& c : {Case{true, "ROWGROUP", false, 0xFFFFFF}, Case{false, "ROWGROUP", true, 0},
                          Case{false, "TITLEGROUP", false, 0xE1E1E1}}) {
        desk.Column(element, "Listing")->SetItem("ColorBackground", c.color);
        desk.Column(element, "Listing")->SetItem("AlternateBackground", true);
        Draw();
        const auto fill = host::As<host::IHostFilledElement>(Part(c.group, 0, 0));
        EXPECT_EQ(fill->Symbol()->Color()->Transparent(), c.transparent);
        EXPECT_EQ(fill->Symbol()->Color()->RGB(), c.rgb);
    }
}

TEST_F(RowElements, BreakHeadingHasItsSpaceAbove) {
    desk.Properties(element)->SetItem("AddStartingBreak", true);
    Draw();
    const double withHeading = desk.Bounds(*Part("BREAKGROUP", 0, 0))->Height();
    const double gap = desk.Bounds(*Part("BREAKGROUP", 0, 0))->YMax() -
                       desk.Bounds(*Part("BREAKGROUP", 0, 1))->YMax();
    EXPECT_NEAR(gap, 0.05 + 0.1, 1e-9);
    desk.Column(element, "Listing")->SetItem("BreakHeading", false);
    Draw();
    EXPECT_EQ(TestDesk::CellText(*TestDesk::Members(*element, "BREAKGROUP").at(0), 0), " ");
    EXPECT_NEAR(desk.Bounds(*Part("BREAKGROUP", 0, 0))->Height(), withHeading - 0.1, 1e-9);
}

TEST_F(RowElements, TooNarrowColumnIsNamed) {
    desk.Column(element, "Listing")->SetItem("MarginLeft", 1.99);
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(element);
    EXPECT_EQ(desk.Dialogs().LastCause(), "Column width is set too narrow for selected Font!");
    EXPECT_EQ(desk.Dialogs().LastFact("column"), "Listing");
    EXPECT_EQ(desk.Dialogs().LastFact("text"), "Listing");
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
}

}  // namespace
}  // namespace gazetteer
