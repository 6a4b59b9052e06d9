#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "support/Assignments.h"
#include "support/TestDesk.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using support::Store;
using support::TestDesk;

// A random gazetteer whose references are unique, so that a drawn row tells its listing.
struct RandomGazetteer {
    explicit RandomGazetteer(unsigned seed, desk::DeskOptions options = {})
        : random(seed), desk(std::move(options)) {
        TestDesk::Rows rows;
        const int count = Number(1, 160);
        for (int i = 0; i < count; ++i) rows.push_back({Name(), "r" + std::to_string(i)});
        const int listingWidth = Number(7, 18);
        const int pageWidth = Number(7, 12);
        // As the property page demands, one column group fits the frame.
        element = desk.NewGazetteer(desk.ListingTable(rows),
                                    (listingWidth + pageWidth + Number(0, 60)) / 10.0,
                                    Number(15, 60) / 10.0);
        desk.Column(element, "Page")->SetItem("Expression", "[Ref]");
        if (Number(0, 1) == 1)
            desk.Column(element, "Listing")->SetItem("Expression", "[Listing]$$DOTS");
        for (const char* column : {"Listing", "Page"}) {
            const auto set = desk.Column(element, column);
            set->SetItem("ColumnFontSymbol",
                         TestDesk::Object(desk.TextSymbol("Liberation Sans", Number(6, 14))));
            set->SetItem("ColumnWidth", (column[0] == 'L' ? listingWidth : pageWidth) / 10.0);
            set->SetItem("ShowTitle", Number(0, 2) > 0);
            set->SetItem("BreakColumn", Number(0, 1) == 1 && column[0] == 'L');
            set->SetItem("BreakHeading", Number(0, 1) == 1);
            set->SetItem("AlternateBackground", Number(0, 1) == 1);
            set->SetItem("ColorBackground", Number(0, 3) > 0);
        }
        Store(desk, element,
              {{"RepeatColumns", Number(0, 3) > 0},
               {"RepeatSpacing", Number(0, 4) / 10.0},
               {"ClearRepeatingText", Number(0, 1) == 1},
               {"AddStartingBreak", Number(0, 1) == 1},
               {"CombineListings", false}});
    }

    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random); }

    std::string Name() {
        static const auto words =
            Split("Abbey|ash|Birch|Canal Street|42nd|7|élan|Zion Hill Road", '|');
        std::string name;
        for (int i = Number(1, 4); i > 0; --i)
            name += (name.empty() ? "" : " ") +
                    words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
        return name;
    }

    std::mt19937 random;
    TestDesk desk;
    host::Ref<host::IHostGroupElement> element;
};

// Texts of a column of the rows drawn, in the order in which they stand on the page.
std::vector<std::string> Drawn(const host::IHostGroupElement& element, const char* rows,
                               int column) {
    std::vector<std::string> texts;
    for (const auto& row : TestDesk::Members(element, rows))
        texts.push_back(TestDesk::CellText(*row, column));
    return texts;
}

// References of the listings, in the order of the index or of one of its pages.
std::vector<std::string> References(CVNGazetteerManager& manager, std::int32_t page = 0) {
    const auto cells = TestDesk::SetIn(*manager.Working().listings, "Page");
    auto rows = cells;
    if (page > 0) rows = TestDesk::SetIn(*manager.Working().pageGroups, std::to_string(page));
    std::vector<std::string> references;
    for (const auto& row : rows->AllItems().names)
        references.push_back(std::get<std::string>(cells->Item(row)));
    return references;
}

// The rule of the width test counts one gap only, so the last of many column groups may pass the
// frame's right edge by the other gaps.
void ExpectInsideFrame(TestDesk& desk, const host::IHostGroupElement& element, double spacing) {
    const auto frame = element.Geometry()->Bounds();
    constexpr double kRounding = 1e-9;
    for (std::int32_t i = 0; i < element.Count(); ++i) {
        const auto box = desk.Bounds(*element.Item(i));
        EXPECT_GE(box->XMin(), frame->XMin() - kRounding);
        EXPECT_LE(box->YMax(), frame->YMax() + kRounding);
        EXPECT_GE(box->YMin(), frame->YMin() - kRounding);
        const double groups = std::floor((box->XMax() - frame->XMin()) / box->Width());
        EXPECT_LE(box->XMax(), frame->XMax() + std::max(0.0, groups - 1) * spacing + kRounding);
    }
}

TEST(Pages, RandomGazetteersKeepTheirPromises) {
    int pagesSeen = 0;
    for (unsigned seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomGazetteer random(seed);
        CVNGazetteerManager manager(random.desk.HostRef());
        manager.SetIndexElement(random.element);
        if (random.desk.Dialogs().LastCause() ==
            "Column width is set too narrow for selected Font!")
            continue;
        ASSERT_EQ(random.desk.Dialogs().LastCause(), "");

        std::vector<std::string> all;
        for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page) {
            ++pagesSeen;
            manager.SetIndexToPageNumber(page);
            ASSERT_EQ(random.desk.Dialogs().LastCause(), "");
            const auto numbered = References(manager, page);
            EXPECT_EQ(Drawn(*random.element, "ROWGROUP", 1), numbered) << "page " << page;
            all.insert(all.end(), numbered.begin(), numbered.end());
            ExpectInsideFrame(random.desk, *random.element, manager.BoundSettings().repeatSpacing);

            const std::string tree = random.desk.Dump(*random.element);
            manager.SetIndexToPageNumber(page);
            EXPECT_EQ(random.desk.Dump(*random.element), tree);
            manager.DraftMode();
            EXPECT_EQ(TestDesk::Members(*random.element, "ROWGROUP").size(), 0U);
            manager.SetIndexToPageNumber(page);
            EXPECT_EQ(random.desk.Dump(*random.element), tree);
        }
        EXPECT_EQ(all, References(manager));
    }
    EXPECT_GT(pagesSeen, 150);
}

// All pages as they are drawn, or what went wrong.
std::string AllPages(RandomGazetteer& random) {
    CVNGazetteerManager manager(random.desk.HostRef());
    manager.SetIndexElement(random.element);
    std::string pages = random.desk.Dialogs().LastCause();
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page) {
        manager.SetIndexToPageNumber(page);
        pages += random.desk.Dump(*random.element);
    }
    return pages;
}

TEST(Pages, QuickSizesChangeNothing) {
    desk::DeskOptions plainSizes;
    plainSizes.textSizes = desk::TextEngine::Ways::Plain;
    for (unsigned seed = 101; seed <= 140; ++seed) {
        RandomGazetteer quick(seed);
        RandomGazetteer plain(seed, plainSizes);
        ASSERT_EQ(AllPages(quick), AllPages(plain)) << "seed " << seed;
    }
}

// Rows of one line each, in two columns an inch wide.
class SmallPages : public ::testing::Test {
protected:
    void Make(int count, double width, double height) {
        TestDesk::Rows rows;
        for (int i = 0; i < count; ++i) rows.push_back({std::string(1, char('a' + i)), "1"});
        element = desk.NewGazetteer(desk.ListingTable(rows), width, height);
        for (const std::string column : {"Listing", "Page"})
            Store(desk, element,
                  {{column + ".ColumnWidth", 1.0},
                   {column + ".ShowTitle", false},
                   {column + ".BreakColumn", false}});
    }
    CVNGazetteerManager& Bind() {
        manager = std::make_unique<CVNGazetteerManager>(desk.HostRef());
        manager->SetIndexElement(element);
        return *manager;
    }
    std::int32_t PageCount() { return std::get<std::int32_t>(Bind().PageCount()); }
    double Foot() { return element->Geometry()->Bounds()->YMin(); }
    TestDesk desk;
    host::Ref<host::IHostGroupElement> element;
    std::unique_ptr<CVNGazetteerManager> manager;
};

TEST_F(SmallPages, EqualityAtTheEdges) {
    Make(4, 2, 5);
    Bind().SetIndexToPageNumber(1);
    const double line = desk.Bounds(*TestDesk::Members(*element, "ROWGROUP").at(0))->Height();
    double four = 0;
    for (int i = 0; i < 4; ++i) four += line;
    for (const auto& [what, rows, width, pages] :
         {std::tuple{"rows that fill the frame to the last fraction fit", 4, 2.0, 1},
          {"one more does not", 5, 2.0, 2},
          {"two column groups need more than the width", 5, 4.25, 2},
          {"and take a little more", 5, 4.26, 1}}) {
        Make(rows, width, four);
        desk.Properties(element)->SetItem("RepeatSpacing", 0.25);
        EXPECT_EQ(PageCount(), pages) << what;
    }
}

TEST_F(SmallPages, FeetOfColumnsAreStretchedButTheLast) {
    Make(6, 5, 1);
    Bind().SetIndexToPageNumber(1);
    const auto rows = TestDesk::Members(*element, "ROWGROUP");
    ASSERT_EQ(rows.size(), 6U);
    const auto atFoot = std::ranges::count_if(
        rows, [&](const auto& row) { return desk.Bounds(*row)->YMin() < Foot() + 1e-9; });
    EXPECT_EQ(atFoot, 1);
    EXPECT_GT(desk.Bounds(*rows.back())->YMin(), Foot());
}

TEST_F(SmallPages, OfAFrameLowerThanARowHaveOneAndLowerThanATitleNone) {
    Make(3, 2, 0.1);
    EXPECT_EQ(PageCount(), 3);
    manager->SetIndexToPageNumber(1);
    EXPECT_EQ(TestDesk::Members(*element, "ROWGROUP").size(), 1U);
    EXPECT_EQ(manager->LastRun().placed, 3);
    Make(3, 2, 0.1);
    desk.Column(element, "Page")->SetItem("ShowTitle", true);
    EXPECT_EQ(PageCount(), 0);
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
    EXPECT_EQ(manager->LastRun().listings, 3);
    EXPECT_EQ(manager->LastRun().placed, 0);
}

TEST_F(SmallPages, SamplePageIsOneWithALabelOnTop) {
    Make(20, 2, 1);
    desk.Properties(element)->SetItem("SamplePage", true);
    EXPECT_EQ(PageCount(), 1);
    manager->SetIndexToPageNumber(1);
    const auto top = element->Item(element->Count() - 1);
    EXPECT_EQ(TestDesk::Tag(*top), "SAMPLELABEL");
    EXPECT_EQ(host::As<host::IHostTextElement>(top)->Text(), "SAMPLE PAGE");
    for (const auto& row : TestDesk::Members(*element, "ROWGROUP"))
        EXPECT_NEAR(desk.Bounds(*row)->YMin(), Foot(), 1e-9);
    manager->DraftMode();
    EXPECT_EQ(element->Count(), 1);  // The label stays until the next draw.
}

TEST_F(SmallPages, BreaksFollowFirstLetters) {
    using Texts = std::vector<std::string>;
    const std::tuple<const char*, Texts, bool, Texts> cases[] = {
        {"case aside", {"Ash", "ash b", "Birch"}, false, {"B"}},
        {"digits need none, a letter behind them does", {"1st", "2nd", "Ash"}, false, {"A"}},
        {"a starting break before a letter", {"Ash", "Birch"}, true, {"A", "B"}},
        {"but not before a digit", {"1st", "Ash"}, true, {"A"}},
        {"accents count, marks are not torn", {"E", "É", "E\u0301b"}, false, {"É"}},
    };
    for (const auto& [what, names, startingBreak, headings] : cases) {
        TestDesk::Rows rows;
        for (const auto& name : names) rows.push_back({name, "1"});
        element = desk.NewGazetteer(desk.ListingTable(rows), 4.5, 5);
        Store(desk, element, {{"SortColumns", false}, {"AddStartingBreak", startingBreak}});
        Bind().SetIndexToPageNumber(1);
        EXPECT_EQ(Drawn(*element, "BREAKGROUP", 0), headings) << what;
    }
}

TEST_F(SmallPages, RepeatingTextIsBlankedFromTheLeft) {
    element = desk.NewGazetteer(
        desk.ListingTable({{"Ash", "1"}, {"ASH", "2"}, {"Birch", "2"}, {"Birch", "3"}}), 4.5, 5);
    Store(desk, element, {{"CombineListings", false}, {"ClearRepeatingText", true}});
    Bind().SetIndexToPageNumber(1);
    using Texts = std::vector<std::string>;
    EXPECT_EQ(Drawn(*element, "ROWGROUP", 0), (Texts{"Ash", " ", "Birch", " "}));
    EXPECT_EQ(Drawn(*element, "ROWGROUP", 1), (Texts{"1", "2", "2", "3"}));
}

TEST_F(SmallPages, ForeignMembersSurviveBehindTheRows) {
    Make(2, 2, 2);
    auto own = desk.Host().NewTextElement();
    host::As<host::IHostElementName>(own)->SetName("NOTE");
    element->Add(own);
    auto& bound = Bind();
    bound.SetIndexToPageNumber(1);
    bound.SetIndexToPageNumber(1);
    EXPECT_EQ(element->Item(0), own);
    bound.DraftMode();
    ASSERT_EQ(element->Count(), 1);
}

}  // namespace
}  // namespace gazetteer
