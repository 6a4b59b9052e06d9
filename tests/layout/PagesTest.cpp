#include <algorithm>
#include <gtest/gtest.h>

#include "layout/RandomTexts.h"
#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using support::SmallHost;

// A random gazetteer whose references are unique, so that a drawn row tells its listing.
struct RandomGazetteer : SmallHost, RandomTexts {
    explicit RandomGazetteer(unsigned seed) : RandomTexts(seed) {
        SmallHost::Rows rows;
        const int count = Number(1, 160);
        for (int i = 0; i < count; ++i) rows.push_back({Name(), "r" + std::to_string(i)});
        const int listingWidth = Number(7, 18);
        const int pageWidth = Number(7, 12);
        // As the property page demands, one column group fits the frame. So do three rows of many
        // lines, since one that is alone in its column group may pass the frame's foot.
        element =
            NewGazetteer(ListingTable(rows), (listingWidth + pageWidth + Number(0, 60)) / 10.0,
                         Number(30, 60) / 10.0);
        Store(element, {{"Page.Expression", "[Ref]"},
                        {"RepeatColumns", Number(0, 3) > 0},
                        {"RepeatSpacing", Number(0, 4) / 10.0},
                        {"ClearRepeatingText", Number(0, 1) == 1},
                        {"AddStartingBreak", Number(0, 1) == 1},
                        {"CombineListings", false}});
        if (Number(0, 1) == 1) Store(element, {{"Listing.Expression", "[Listing]$$DOTS"}});
        for (const std::string column : {"Listing", "Page"}) {
            const bool isListing = column == "Listing";
            const auto symbol = TextSymbol("", Number(5, 9));
            Store(element,
                  {{column + ".ColumnFontSymbol", SmallHost::Object(symbol)},
                   {column + ".ColumnWidth", (isListing ? listingWidth : pageWidth) / 10.0},
                   {column + ".ShowTitle", Number(0, 2) > 0},
                   {column + ".BreakColumn", Number(0, 1) == 1 && isListing},
                   {column + ".BreakHeading", Number(0, 1) == 1},
                   {column + ".AlternateBackground", Number(0, 1) == 1},
                   {column + ".ColorBackground", Number(0, 3) > 0}});
        }
    }

    std::string Name() {
        static const auto words =
            Split("Abbey|ash|Birch|Canal Street|42nd|7|élan|Zion Hill Road", '|');
        std::string name;
        for (int i = Number(1, 3); i > 0; --i)
            name += (name.empty() ? "" : " ") +
                    words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
        return name;
    }

    host::Ref<host::IHostGroupElement> element;
};

// References of the listings, in the order of the index or of one of its pages.
std::vector<std::string> References(CVNGazetteerManager& manager, std::int32_t page = 0) {
    const auto cells = SmallHost::SetIn(*manager.Working().listings, "Page");
    auto rows = cells;
    if (page > 0) rows = SmallHost::SetIn(*manager.Working().pageGroups, std::to_string(page));
    std::vector<std::string> references;
    for (const auto& row : rows->AllItems().names)
        references.push_back(std::get<std::string>(cells->Item(row)));
    return references;
}

// The rule of the width test counts one gap only, so the last of many column groups may pass the
// frame's right edge by the other gaps.
void ExpectInsideFrame(SmallHost& small, const host::IHostGroupElement& element, double spacing) {
    const auto frame = element.Geometry()->Bounds();
    constexpr double kRounding = 1e-9;
    for (std::int32_t i = 0; i < element.Count(); ++i) {
        const auto box = small.Bounds(*element.Item(i));
        EXPECT_GE(box->XMin(), frame->XMin() - kRounding);
        EXPECT_LE(box->YMax(), frame->YMax() + kRounding);
        EXPECT_GE(box->YMin(), frame->YMin() - kRounding);
        const double groups = std::floor((box->XMax() - frame->XMin()) / box->Width());
        EXPECT_LE(box->XMax(), frame->XMax() + std::max(0.0, groups - 1) * spacing + kRounding);
    }
}

TEST(Pages, RandomGazetteersKeepTheirPromises) {
    int pagesSeen = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomGazetteer random(seed);
        CVNGazetteerManager manager(random.HostRef());
        manager.SetIndexElement(random.element);
        if (random.Dialogs().LastCause() == "Column width is set too narrow for selected Font!")
            continue;
        ASSERT_EQ(random.Dialogs().LastCause(), "");

        std::vector<std::string> all;
        for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page) {
            ++pagesSeen;
            manager.SetIndexToPageNumber(page);
            ASSERT_EQ(random.Dialogs().LastCause(), "");
            const auto numbered = References(manager, page);
            EXPECT_EQ(SmallHost::DrawnTexts(*random.element, 1), numbered) << "page " << page;
            all.insert(all.end(), numbered.begin(), numbered.end());
            ExpectInsideFrame(random, *random.element, manager.BoundSettings().repeatSpacing);

            const std::string tree = random.Dump(*random.element);
            manager.SetIndexToPageNumber(page);
            EXPECT_EQ(random.Dump(*random.element), tree);
            manager.DraftMode();
            EXPECT_EQ(SmallHost::Members(*random.element, "ROWGROUP").size(), 0U);
            manager.SetIndexToPageNumber(page);
            EXPECT_EQ(random.Dump(*random.element), tree);
        }
        EXPECT_EQ(all, References(manager));
    }
    EXPECT_GT(pagesSeen, 150);
}

constexpr double kRow = 12.0 / 72 + 0.05 + 0.05;  // A line of 10 points and its margins.

// Rows of one line each, in two columns an inch wide.
class SmallPages : public ::testing::Test, protected SmallHost {
protected:
    void Make(int count, double width, double height) {
        Rows rows;
        for (int i = 0; i < count; ++i) rows.push_back({std::string(1, char('a' + i)), "1"});
        element = NewGazetteer(ListingTable(rows), width, height);
        for (const std::string column : {"Listing", "Page"})
            Store(element, {{column + ".ColumnWidth", 1.0},
                            {column + ".ShowTitle", false},
                            {column + ".BreakColumn", false}});
    }
    CVNGazetteerManager& Bind() {
        manager = std::make_unique<CVNGazetteerManager>(HostRef());
        manager->SetIndexElement(element);
        return *manager;
    }
    std::int32_t PageCount() { return std::get<std::int32_t>(Bind().PageCount()); }
    double Foot() { return element->Geometry()->Bounds()->YMin(); }
    host::Ref<host::IHostGroupElement> element;
    std::unique_ptr<CVNGazetteerManager> manager;
};

TEST_F(SmallPages, TakeAsManyRowsAsTheirFrameHasRoomFor) {
    const std::tuple<const char*, int, double, int, std::int32_t, std::size_t> cases[] = {
        {"rows that fill the frame to the last fraction fit", 4, 2, 4, 1, 4},
        {"one more does not", 5, 2, 4, 2, 4},
        {"two column groups need more than the width", 5, 4.25, 4, 2, 4},
        {"and take a little more", 5, 4.26, 4, 1, 5},
        {"a frame lower than a row has one", 3, 2, 0, 3, 1},
    };
    for (const auto& [what, count, width, rows, pages, onFirst] : cases) {
        double height = rows == 0 ? 0.1 : 0;
        for (int i = 0; i < rows; ++i) height += kRow;
        Make(count, width, height);
        Store(element, {{"RepeatSpacing", 0.25}});
        EXPECT_EQ(PageCount(), pages) << what;
        manager->SetIndexToPageNumber(1);
        EXPECT_EQ(Members(*element, "ROWGROUP").size(), onFirst) << what;
        EXPECT_EQ(manager->LastRun().placed, count) << what;
    }
    Make(3, 2, 0.1);
    Store(element, {{"Page.ShowTitle", true}});
    EXPECT_EQ(PageCount(), 0) << "a frame lower than a title has none";
    EXPECT_EQ(Dialogs().LastCause(), "");
    EXPECT_EQ(manager->LastRun().listings, 3);
    EXPECT_EQ(manager->LastRun().placed, 0);
}

TEST_F(SmallPages, FeetOfColumnsAreStretchedButTheLast) {
    Make(6, 5, 1);
    Bind().SetIndexToPageNumber(1);
    std::vector<double> feet;
    for (const auto& row : Members(*element, "ROWGROUP"))
        feet.push_back(std::round((Bounds(*row)->YMin() - Foot()) / kRow * 100) / 100);
    EXPECT_EQ(feet, (std::vector<double>{2.75, 1.75, 0, 2.75, 1.75, 0.75}));
}

// A member of the user's own stays behind the rows.
TEST_F(SmallPages, SamplePageIsOneWithALabelOnTop) {
    Make(20, 2, 1);
    const auto own = Host().NewTextElement();
    element->Add(own);
    Properties(element)->SetItem("SamplePage", true);
    EXPECT_EQ(PageCount(), 1);
    manager->SetIndexToPageNumber(1);
    const auto top = element->Item(element->Count() - 1);
    EXPECT_EQ(Tag(*top), "SAMPLELABEL");
    EXPECT_EQ(host::As<host::IHostTextElement>(top)->Text(), "SAMPLE PAGE");
    for (const auto& row : Members(*element, "ROWGROUP"))
        EXPECT_NEAR(Bounds(*row)->YMin(), Foot(), 1e-9);
    EXPECT_EQ(element->Item(0), own);
    manager->DraftMode();
    EXPECT_EQ(element->Count(), 2);  // The label stays until the next draw.
}

TEST_F(SmallPages, BreaksFollowFirstLetters) {
    const std::tuple<const char*, const char*, bool, const char*> cases[] = {
        {"case aside", "Ash|ash b|Birch", false, "B"},
        {"digits need none, a letter behind them does", "1st|2nd|Ash", false, "A"},
        {"a starting break before a letter", "Ash|Birch", true, "A|B"},
        {"but not before a digit", "1st|Ash", true, "A"},
        {"marks are not torn", "E|E\u0301|e\u0301b", false, "E\u0301"},
    };
    for (const auto& [what, names, startingBreak, headings] : cases) {
        Rows rows;
        for (const auto& name : Split(names, '|')) rows.push_back({name, "1"});
        element = NewGazetteer(ListingTable(rows), 4.5, 5);
        Store(element, {{"SortColumns", false}, {"AddStartingBreak", startingBreak}});
        Bind().SetIndexToPageNumber(1);
        EXPECT_EQ(DrawnTexts(*element, 0, "BREAKGROUP"), Split(headings, '|')) << what;
    }
}

TEST_F(SmallPages, RepeatingTextIsBlankedFromTheLeft) {
    element = NewGazetteer(
        ListingTable({{"Ash", "1"}, {"ASH", "2"}, {"Birch", "2"}, {"Birch", "3"}}), 4.5, 5);
    Store(element, {{"CombineListings", false}, {"ClearRepeatingText", true}});
    Bind().SetIndexToPageNumber(1);
    EXPECT_EQ(DrawnTexts(*element, 0), Split("Ash| |Birch| ", '|'));
    EXPECT_EQ(DrawnTexts(*element, 1), Split("1|2|2|3", '|'));
}

}  // namespace
}  // namespace gazetteer
