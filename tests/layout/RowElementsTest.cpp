#include <gtest/gtest.h>

#include "support/SmallHost.h"

namespace gazetteer {
namespace {

// One listing "Ash" with reference "4", columns 1.9 and 1 inches wide, margins as by default.
class RowElements : public ::testing::Test, protected support::SmallHost {
protected:
    void Draw(const Assignments& settings) {
        Store(element, {{"Page.ColumnWidth", 1.0}, {"HaveSavedListings", false}});
        Store(element, settings);
        CVNGazetteerManager manager(HostRef());
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        ASSERT_EQ(Dialogs().LastCause(), "");
    }
    host::Ref<host::IHostElement> Part(const char* group, int column, int part) {
        const auto row = Members(*element, group).at(0);
        const auto cell = host::As<host::IHostGroupElement>(row)->Item(column);
        return host::As<host::IHostGroupElement>(cell)->Item(part);
    }
    Group element = NewGazetteer(ListingTable({{"Ash", "4"}}), 4, 5);
};

TEST_F(RowElements, AlignmentsAnchorTheText) {
    for (const auto& [alignment, x, placement] : {std::tuple{"Left", 0.05, 0},
                                                  {"Center", 0.95, 1},
                                                  {"Right", 1.85, 2},
                                                  {"Justify", 0.05, 3}}) {
        Draw({{"Listing.Alignment", alignment}});
        const auto text = host::As<host::IHostTextElement>(Part("ROWGROUP", 0, 1));
        const auto anchor = host::As<host::IHostPoint>(text->Geometry());
        EXPECT_NEAR(anchor->X() - element->Geometry()->Bounds()->XMin(), x, 1e-12) << alignment;
        EXPECT_EQ(text->Symbol()->HorizontalPlacement(), placement) << alignment;
        EXPECT_EQ(text->Symbol()->VerticalPlacement(), 1) << alignment;
    }
}

TEST_F(RowElements, BackgroundsShareTheHeightOfTheTallestCell) {
    Draw({{"Listing.Expression", "one$$NEWLINEtwo$$NEWLINEthree"}});
    const auto tall = Bounds(*Part("ROWGROUP", 0, 0));
    const auto low = Bounds(*Part("ROWGROUP", 1, 0));
    EXPECT_DOUBLE_EQ(tall->YMin(), low->YMin());
    EXPECT_DOUBLE_EQ(tall->YMax(), low->YMax());
    EXPECT_DOUBLE_EQ(tall->XMax(), low->XMin());
    // The text of the stretched cell stays at its top margin.
    const auto text = Bounds(*Part("ROWGROUP", 1, 1));
    EXPECT_NEAR(low->YMax() - text->YMax(), 0.05, 1e-9);
}

TEST_F(RowElements, FillsByKindOfRow) {
    for (const auto& [color, group, transparent, rgb] :
         {std::tuple{true, "ROWGROUP", false, 0xFFFFFFU},
          {false, "ROWGROUP", true, 0U},
          {false, "TITLEGROUP", false, 0xE1E1E1U}}) {
        Draw({{"Listing.ColorBackground", color}, {"Listing.AlternateBackground", true}});
        const auto fill = host::As<host::IHostFilledElement>(Part(group, 0, 0))->Symbol()->Color();
        EXPECT_EQ(fill->Transparent(), transparent) << color << group;
        EXPECT_EQ(fill->RGB(), rgb) << color << group;
    }
}

TEST_F(RowElements, BreakHeadingHasItsSpaceAbove) {
    Draw({{"AddStartingBreak", true}});
    const double withHeading = Bounds(*Part("BREAKGROUP", 0, 0))->Height();
    const double gap =
        Bounds(*Part("BREAKGROUP", 0, 0))->YMax() - Bounds(*Part("BREAKGROUP", 0, 1))->YMax();
    EXPECT_NEAR(gap, 0.05 + 0.1, 1e-9);
    Draw({{"AddStartingBreak", true}, {"Listing.BreakHeading", false}});
    EXPECT_EQ(CellText(*Members(*element, "BREAKGROUP").at(0), 0), " ");
    EXPECT_NEAR(Bounds(*Part("BREAKGROUP", 0, 0))->Height(), withHeading - 0.1, 1e-9);
}

}  // namespace
}  // namespace gazetteer
