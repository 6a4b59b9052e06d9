#include <gtest/gtest.h>

#include "support/TestDesk.h"

namespace gazetteer {
namespace {

using Rows = std::vector<std::vector<std::string>>;
using Changes = std::vector<std::pair<std::string, host::Variant>>;

// Listings as "Listing|Page" after a run over rows of listing and page.
std::vector<std::string> Listings(const Rows& rows, const Changes& changes,
                                  RunReport* report = nullptr) {
    support::TestDesk desk;
    const auto element = desk.NewGazetteer(desk.ListingTable(rows), 4, 4);
    desk.Column(element, "Page")->SetItem("Expression", std::string("[Ref]"));
    for (const auto& [key, value] : changes) desk.Properties(element)->SetItem(key, value);
    CVNGazetteerManager manager(desk.HostRef());
    manager.SetIndexElement(element);
    EXPECT_EQ(desk.Dialogs().LastCause(), "");
    if (report) *report = manager.LastRun();
    return desk.ListingTexts(manager);
}

TEST(Listings, DuplicatesGoAndReferencesCombine) {
    const Rows rows = {{"Main St", "4"}, {"Main St", "4"}, {"MAIN ST", "4"},
                       {"Main St", "6"}, {"Main St", "9"}, {"Oak Ave", "1"}};
    const Changes comma = {{"CombineWithNewLine", false}};
    RunReport report;
    EXPECT_EQ(
        Listings(rows, {{"CombineWithNewLine", false}, {"CombineFirstAndLast", false}}, &report),
        (std::vector<std::string>{"Main St|4, 6, 9", "Oak Ave|1"}));
    EXPECT_EQ(report.records, 6);
    EXPECT_EQ(report.duplicates, 2);
    EXPECT_EQ(report.combined, 2);
    EXPECT_EQ(report.listings, 2);
    EXPECT_EQ(report.placed, 2);
    EXPECT_EQ(Listings(rows, comma), (std::vector<std::string>{"Main St|4, 9", "Oak Ave|1"}));
    EXPECT_EQ(Listings(rows, {{"CombineListings", false}}),
              (std::vector<std::string>{"Main St|4", "Main St|6", "Main St|9", "Oak Ave|1"}));
}

TEST(Listings, CombiningCornerCases) {
    struct Case {
        const char* what;
        Rows rows;
        Changes changes;
        std::vector<std::string> listings;
    };
    const Changes all = {
        {"CombineWithNewLine", false}, {"CombineFirstAndLast", false}, {"SortColumns", false}};
    const Changes firstAndLast = {{"CombineWithNewLine", false}, {"SortColumns", false}};
    const Changes lines = {{"CombineFirstAndLast", false},
                           {"SortColumns", false},
                           {"CombineDelimeter", std::string("!")}};
    const Case cases[] = {
        {"the last listing may still grow",
         {{"A", "1"}, {"A", "2"}, {"A", "3"}},
         firstAndLast,
         {"A|1$$LASTCOMBINE, 3"}},
        {"new lines leave the delimiter unused",
         {{"A", "1"}, {"A", "2"}},
         lines,
         {"A|1$$NEWLINE2"}},
        {"merged text is not searched for repeats",
         {{"A", "a"}, {"A", "b"}, {"A", "a"}},
         all,
         {"A|a, b, a"}},
        {"no separator between the texts compared", {{"AB", "C"}, {"A", "BC"}}, all, {"AB|C"}},
        {"a first row without any text equals none", {{"", ""}, {"A", "1"}}, all, {"A|1"}},
        {"an empty listing before any other stands", {{"", "1"}, {"", "2"}}, all, {"|1, 2"}},
        {"a duplicate inside a merge changes nothing",
         {{"A", "1"}, {"A", "2"}, {"a", "2"}, {"A", "3"}},
         all,
         {"A|1, 2, 3"}},
    };
    for (const Case& c : cases) EXPECT_EQ(Listings(c.rows, c.changes), c.listings) << c.what;
}

TEST(Listings, OrderFollowsTheSettings) {
    const Rows rows = {{"b 10", "1"}, {"a", "3"}, {"b 2", "2"}};
    EXPECT_EQ(Listings(rows, {}), (std::vector<std::string>{"a|3", "b 2|2", "b 10|1"}));
    EXPECT_EQ(Listings(rows, {{"SortAscending", false}}),
              (std::vector<std::string>{"b 10|1", "b 2|2", "a|3"}));
    EXPECT_EQ(Listings(rows, {{"SortColumns", false}}),
              (std::vector<std::string>{"b 10|1", "a|3", "b 2|2"}));
}

TEST(Listings, SampleRunComposes501Records) {
    Rows rows;
    for (int i = 0; i < 700; ++i) rows.push_back({"Place " + std::to_string(i), "1"});
    RunReport report;
    Listings(rows, {{"SamplePage", true}}, &report);
    EXPECT_EQ(report.records, 501);
    EXPECT_EQ(report.listings, 501);
    EXPECT_LT(report.placed, 501);
}

}  // namespace
}  // namespace gazetteer
