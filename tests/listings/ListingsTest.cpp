#include <gtest/gtest.h>

#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using Assignments = support::TestHost::Assignments;
using Result = std::pair<std::vector<std::string>, RunReport>;

// A run over records of "Listing|Page", and the listings in the same form; semicolons between them.
Result Generated(const std::string& records, const Assignments& settings) {
    support::SmallHost small;
    support::TestHost::Rows rows;
    for (const auto& record : Split(records, ';')) rows.push_back(Split(record, '|'));
    const auto element = small.NewGazetteer(small.ListingTable(rows), 4, 4);
    small.Store(element, {{"Page.Expression", "[Ref]"}});
    small.Store(element, settings);
    CVNGazetteerManager manager(small.HostRef());
    manager.SetIndexElement(element);
    EXPECT_EQ(small.Dialogs().LastCause(), "");
    return {small.ListingTexts(manager), manager.LastRun()};
}

constexpr char kStreets[] = "Main St|4;Main St|4;MAIN ST|4;Main St|6;Main St|9;Oak Ave|1";

TEST(Listings, FollowTheSettings) {
    const char* const numbers = "b 10|1;a|3;b 2|2";
    const Assignments firstAndLast = {{"CombineWithNewLine", false}, {"SortColumns", false}};
    const Assignments all = {
        {"CombineWithNewLine", false}, {"SortColumns", false}, {"CombineFirstAndLast", false}};
    const Assignments lines = {
        {"CombineDelimeter", "!"}, {"SortColumns", false}, {"CombineFirstAndLast", false}};
    const Assignments apart = {{"CombineListings", false}};
    const std::tuple<const char*, const char*, Assignments, const char*> cases[] = {
        {"first and last", kStreets, firstAndLast, "Main St|4, 9;Oak Ave|1"},
        {"nothing is combined", kStreets, apart, "Main St|4;Main St|6;Main St|9;Oak Ave|1"},
        {"the last listing may still grow", "A|1;A|2;A|3", firstAndLast, "A|1$$LASTCOMBINE, 3"},
        {"new lines leave the delimiter unused", "A|1;A|2", lines, "A|1$$NEWLINE2"},
        {"merged text is not searched for repeats", "A|a;A|b;A|a", all, "A|a, b, a"},
        {"no separator between the texts compared", "AB|C;A|BC", all, "AB|C"},
        {"a first row without any text equals none", "|;A|1", all, "A|1"},
        {"an empty listing before any other stands", "|1;|2", all, "|1, 2"},
        {"a duplicate inside a merge changes nothing", "A|1;A|2;a|2;A|3", all, "A|1, 2, 3"},
        {"sorted", numbers, {}, "a|3;b 2|2;b 10|1"},
        {"descending", numbers, {{"SortAscending", false}}, "b 10|1;b 2|2;a|3"},
        {"unsorted", numbers, {{"SortColumns", false}}, "b 10|1;a|3;b 2|2"},
    };
    for (const auto& [what, records, settings, listings] : cases)
        EXPECT_EQ(Generated(records, settings).first, Split(listings, ';')) << what;
}

TEST(Listings, OfASamplePageAreThoseOfTheFirstRecords) {
    std::string records = "Place 0|1";
    for (int i = 1; i < 700; ++i) records += ";Place " + std::to_string(i) + "|1";
    const auto [listings, sample] = Generated(records, {{"SamplePage", true}});
    EXPECT_EQ(sample.records, 501);
    EXPECT_EQ(listings.size(), 501U);
    EXPECT_LT(sample.placed, 501);
}

}  // namespace
}  // namespace gazetteer
