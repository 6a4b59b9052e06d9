#include <functional>
#include <gtest/gtest.h>

#include "model/Typesetting.h"
#include "support/SmallHost.h"
#include "support/Text.h"
#include "typesetting/DrawnPage.h"

namespace typesetting {
namespace {

using gazetteer::Typesetting;
using support::SmallHost;

constexpr double kLetter = 1.0 / 12;  // Inches; all letters of 10 points are as wide.
constexpr double kLine = 1.0 / 6;

/// A number with two digits behind the point at most.
std::string Short(double number) {
    std::string text = std::to_string(std::round(number * 100) / 100);
    text.resize(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text == "-0" ? "0" : text;
}

/// The pieces of the first cell, those of another line behind a slash: each with its place in
/// letters from the left edge and how it hangs there.
std::string Pieces(const DrawnRow& row) {
    std::string pieces;
    const auto& texts = row.cells[0];
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) pieces += texts[i].middle < texts[i - 1].middle - kLine / 2 ? "/" : "|";
        pieces += texts[i].text + '@' + Short((texts[i].edge - row.firstLeft) / kLetter) +
                  "<^>="[texts[i].placement];
    }
    return pieces;
}

/// A page of a column of 12 letters without margins, beside another.
struct Page : SmallHost {
    Page(const Rows& rows, const Assignments& assignments, const Typesetting& typesetting,
         double height = 4)
        : element(NewGazetteer(ListingTable(rows), 4, height)) {
        for (const std::string column : {"Listing", "Page"})
            for (const char* margin : {"MarginLeft", "MarginRight", "MarginTop", "MarginBottom"})
                Store(element, {{column + '.' + margin, 0.0}});
        Store(element, {{"Listing.ColumnWidth", 12 * kLetter},
                        {"Listing.ShowTitle", false},
                        {"Page.ShowTitle", false},
                        {"Page.Expression", "[Ref]"}});
        Store(element, assignments);
        gazetteer::StoreTypesetting(Host(), element, typesetting);
        gazetteer::CVNGazetteerManager manager(HostRef());
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_EQ(Dialogs().LastCause(), "");
        const bool mirrored = typesetting.direction == gazetteer::kRightToLeft;
        groups = DrawnPage(*this, *element, mirrored).columnGroups;
    }

    Group element;
    std::vector<std::vector<DrawnRow>> groups;
};

struct Change {
    std::function<void(Typesetting&)> typesetting = [](Typesetting&) {};
    SmallHost::Assignments columns = {};
};

Change Leader(const char* style, int blanks = 0, int least = 0) {
    return {[=](Typesetting& set) {
        set.leaderStyle = style;
        set.leaderBlanks = blanks;
        set.leaderLeast = least;
    }};
}
Change Aligned(Change change, const char* alignment) {
    change.columns.emplace_back("Listing.Alignment", alignment);
    return change;
}
Change Mirrored(Change change) {
    return {[=](Typesetting& set) {
                change.typesetting(set);
                set.direction = gazetteer::kRightToLeft;
            },
            change.columns};
}
Change Indent(double letters, double width) {
    return {[=](Typesetting& set) { set.hangingIndent = letters * kLetter; },
            {{"Listing.ColumnWidth", width * kLetter}}};
}

TEST(Cells, HavePiecesWhereTheirSettingsSay) {
    using namespace gazetteer;
    const Change aligned = Leader(kAlignedLeader), plain = Leader(kPlainLeader);
    const Change none = Leader(kNoLeader), grid{[](Typesetting&set) { set.lineGrid = true; }};
    const std::tuple<const char*, Change, const char*> cases[] = {
        {"Main$$DOTS", aligned, "Main@0<|.......@12>"},
        {"Main$$DOTS", Mirrored(aligned), "Main@12>|.......@0<"},
        {"Main$$DOTS", Leader(kAlignedLeader, 1), "Main@0<|. . . .@12>"},
        {"Main$$DOTS 7", aligned, "Main@0<|.....@10>|7@12>"},
        {"Main$$DOTS 7", Leader(kAlignedLeader, 2), "Main@0<|.  .@9>|7@12>"},
        {"Main Court$$DOTS", Leader(kAlignedLeader, 0, 1), "Main Court@0<|.@12>"},
        {"Main Court$$DOTS", Leader(kAlignedLeader, 0, 2), "Main Court@0<"},
        {"Main$$DOTS", Aligned(aligned, "Right"), "Main@0<|.......@12>"},
        // Without dots a text keeps its alignment, but for one with something at its end.
        {"Main$$DOTS", none, "Main@0<"},
        {"Main$$DOTS", Aligned(none, "Right"), "Main@12>"},
        {"Main$$DOTS", Aligned(none, "Center"), "Main@6^"},
        {"Main$$DOTS 7", Aligned(none, "Right"), "Main@0<|7@12>"},
        {"Main", Aligned(grid, "Justify"), "Main@0="},
        {"Main", Mirrored(Aligned(grid, "Justify")), "Main@12>"},
        {"Main", Mirrored(Aligned(plain, "Right")), "Main@0<"},
        // From right to left the dots stand at the left of Latin letters, too.
        {"Main$$DOTS", plain, "Main........@0<"},
        {"Main$$DOTS", Mirrored(plain), "Main@12>|........@8>"},
        {"Main$$DOTS7", Mirrored(Leader(kPlainLeader)), "Main@12>|.......@8>|7@1>"},
        {"Main Church Street", Indent(3, 12), "Main Church@0</Street@3<"},
        {"abc", Indent(3, 1.5), "a@0</b@0.5</c@0.5<"},
    };
    for (const auto& [text, change, pieces] : cases) {
        Typesetting typesetting;
        change.typesetting(typesetting);
        auto assignments = change.columns;
        assignments.emplace_back("Listing.Expression", text);
        const Page page({{"-", "7"}}, assignments, typesetting);
        ASSERT_FALSE(page.groups.empty());
        EXPECT_EQ(Pieces(page.groups[0].back()), pieces) << text;
    }
}

// Lines of a wrapped listing stand as far apart as rows do; what a heading needs beyond whole lines
// is above it.
TEST(Cells, StandOnTheGridOfLines) {
    Typesetting typesetting;
    typesetting.lineGrid = true;
    const Page page({{"Main Church Street", "7"}, {"Oak", "8"}},
                    {{"Listing.Expression", "[Listing]$$DOTS"},
                     {"Listing.MarginTop", 0.02},
                     {"Listing.MarginBottom", 0.03},
                     {"Listing.BreakColumn", true},
                     {"Listing.BreakHeading", true},
                     {"Listing.BreakSpacing", 0.01},
                     {"AddStartingBreak", true}},
                    typesetting);
    ASSERT_EQ(page.groups.at(0).size(), 4U);
    const double line = kLine + 0.02 + 0.03;
    const auto& [heading, main, secondHeading, oak] =
        std::tie(page.groups[0][0], page.groups[0][1], page.groups[0][2], page.groups[0][3]);
    EXPECT_NEAR(heading.top - heading.foot, 2 * line, 1e-9);
    EXPECT_NEAR(heading.cells[0][0].middle - heading.foot, kLine / 2 + 0.03, 1e-9);
    EXPECT_NEAR(main.top - main.foot, 2 * line, 1e-9);
    EXPECT_NEAR(main.cells[0][0].middle - main.cells[0][1].middle, line, 1e-9);
    EXPECT_NEAR(main.cells[0][1].middle - oak.cells[0][0].middle, 3 * line, 1e-9);
    EXPECT_NEAR(secondHeading.top, main.foot, 1e-9);
    EXPECT_NEAR(main.cells[1][0].middle, main.cells[0][0].middle + 0.02, 1e-9)
        << "without ReferenceLine on the first line";
}

/// The rows of a page, column groups behind a slash: headings in brackets, and a star behind rows
/// with the alternate background.
std::string RowsOf(const Page& page) {
    std::string rows;
    for (const auto& group : page.groups) {
        rows += rows.empty() ? "" : " /";
        for (const DrawnRow& row : group) {
            const std::string text = row.First() + (row.isShaded ? "*" : "");
            rows += row.kind == DrawnRow::Kind::Heading ? " [" + text + ']' : ' ' + text;
        }
    }
    return rows;
}

TEST(Headings, StandWhereTheirSettingsSay) {
    const auto plain = [](Typesetting& set) { set.plainHeadings = true; };
    const auto keep = [](Typesetting& set) { set.keepHeadings = true; };
    const auto balance = [](Typesetting& set) { set.balanceLastPage = true; };
    const auto goOn = [](Typesetting& set) {
        set.continued = "{letter}..";
        set.continuedAt = gazetteer::kAtColumnGroup;
    };
    using Changes = std::vector<std::function<void(Typesetting&)>>;
    const std::tuple<const char*, int, Changes, const char*> cases[] = {
        {"a1 a2 a3 b1 b2", 8, {}, " [a] a1* a2 a3* [b] b1* b2"},
        {"a1 a2 a3 b1 b2", 8, {plain}, " [a] a1 a2* a3 [b] b1* b2"},
        {"a1 a2 a3 b1 b2", 8, {plain, keep}, " [a] a1 a2* a3 [b] b1* b2"},
        {"a1 a2 a3 b1 b2", 4, {plain, keep}, " [a] a1 a2* a3 / [b] b1 b2*"},
        // A letter that begins here does not go on, though its heading had no room or stands alone.
        {"a1 a2 a3 b1 b2", 4, {plain, goOn}, " [a] a1 a2* a3 / b1 b2*"},
        {"a1 a2 b1 b2", 4, {plain, goOn}, " [a] a1 a2* [b] / b1 b2*"},
        {"a1 a2 a3 a4", 4, {plain, goOn}, " [a] a1 a2* a3 / [a..] a4"},
        {"a1 a2 a3 a4 b1 b2",
         4,
         {plain, goOn, keep},
         " [a] a1 a2* a3 / [a..] a4 [b] b1* / [b..] b2"},
        // Balance leaves no heading out.
        {"a1 b1 c1 d1", 20, {plain, balance}, " [a] a1 [b] b1* [c] / c1 [d] / d1"},
        {"a1 a2 a3 b1 b2 b3 c1 c2 d1 d2",
         20,
         {plain, balance, keep},
         " [a] a1 a2* a3 [b] b1* / b2 b3* [c] c1 / c2 [d] d1* d2"},
    };
    for (const auto& [names, lines, changes, rows] : cases) {
        SmallHost::Rows table;
        for (const auto& name : gazetteer::Split(names, ' ')) table.push_back({name, "7"});
        Typesetting typesetting;
        for (const auto& change : changes) change(typesetting);
        const Page page(table,
                        {{"AddStartingBreak", true},
                         {"CombineListings", false},
                         {"RepeatSpacing", 0.0},
                         {"Page.ColumnWidth", 0.25},
                         {"Listing.BreakColumn", true},
                         {"Listing.BreakHeading", true},
                         {"Listing.BreakSpacing", 0.0},
                         {"Listing.ColorBackground", true},
                         {"Listing.AlternateBackground", true}},
                        typesetting, (lines + 0.1) * kLine);
        EXPECT_EQ(RowsOf(page), rows) << names << ", " << lines;
    }
}

}  // namespace
}  // namespace typesetting
