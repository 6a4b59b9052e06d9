#include <gtest/gtest.h>
#include <tuple>

#include "app/Program.h"

namespace tests {
namespace {

using nlohmann::json;

class Findings : public ::testing::Test {
protected:
    void SetUp() override {
        program_.WriteLongTable("long.dbf", 120);
        program_.WriteTable("odd.dbf", {{"Llanfairpwllgwyngyllgogerychwyrndrobwll", "1", "1", "1"},
                                        {"", "2", "1", "1"},
                                        {"Ash St", "", "1", "1"},
                                        {"Elm St", "3", "", "2"}});
        for (const char* name : {"pageless", "rowless"})
            program_.WriteTable(name + std::string(".dbf"), {{"Main St", "6", "2", "3"}});
        for (const char* name : {"long", "odd", "pageless", "rowless"})
            program_.Done({"make", name + std::string(".dbf"), "-o", "o.pdf", "--document",
                           name + std::string(".json"), "--page-size", "5.5x4"});
        support::DbfBuilder({{"Listing"}, {"Row"}, {"Column"}})
            .Row({"Main St", "2", "3"})
            .Write(program_.File("pageless.dbf"));
        support::DbfBuilder({{"Listing"}, {"Page"}, {"Column"}})
            .Row({"Main St", "6", "3"})
            .Write(program_.File("rowless.dbf"));
    }
    json Checked(const std::string& document) const {
        return program_.Done({"check", document, "--json"}).Json()["findings"];
    }

    Program program_;
};

// The document, what is set in it, and of one of the findings the kind, a part of its sentence, and
// further keys.
const std::tuple<const char*, std::vector<std::string>, const char*, const char*, json> kCases[] = {
    {"long.json", {"Listing.ColumnWidth=15"}, "outside-sheet", "off the sheet", {{"page", 1}}},
    {"long.json",
     {"RepeatSpacing=0.8", "Page.ColumnWidth=0.4", "Listing.ColumnWidth=0.7"},
     "outside-frame",
     " inches beyond the right edge of the frame",
     {{"page", 1}}},
    {"long.json",
     {"RepeatSpacing=0.8", "Page.ColumnWidth=0.4", "Listing.ColumnWidth=0.7", "--locale=sv"},
     "outside-frame",
     " mm beyond the right edge of the frame",
     {{"page", 1}}},
    {"long.json", {}, "heading-left-out", "found no room", {{"page", 4}}},
    {"long.json", {}, "heading-alone", "stands alone", {{"page", 2}}},
    {"long.json", {"SamplePage=true"}, "no-place", "only a sample page was asked for", {}},
    {"long.json",
     {"Listing.ColumnFontSymbol=No Such Font,8"},
     "missing-font",
     "stands in for it in the column \"Listing\".",
     {{"column", "Listing"}}},
    {"odd.json",
     {"Listing.Expression=[Listing] \U000F0000"},
     "missing-character",
     "page 1: no installed font has the character U+F0000 of the listing \"",
     {{"column", "Listing"}, {"page", 1}}},
    {"odd.json",
     {"Page.Title=\U000F0000"},
     "missing-character",
     "U+F0000 of the title of the column \"Page\"; a box",
     {{"column", "Page"}}},
    {"odd.json",
     {"Listing.ColumnWidth=1"},
     "broken-word",
     "longer than a line",
     {{"column", "Listing"}}},
    {"odd.json",
     {},
     "empty-value",
     "the field \"Listing\"",
     {{"record", 2}, {"column", "Listing"}}},
    {"odd.json", {}, "empty-value", "the field \"Page\"", {{"record", 3}, {"listing", "Ash St"}}},
    {"odd.json", {}, "empty-value", "the field \"Row\"", {{"record", 4}, {"column", "Page"}}},
    {"pageless.json", {}, "missing-field", "no field \"Page\"", {{"column", "Page"}}},
    {"rowless.json", {}, "missing-field", "no field \"Row\"", {{"column", "Page"}}},
    {"rowless.json",
     {"Page.Expression=$$PAGE_NUMBER $$COLUMN"},
     "missing-field",
     "no field \"Row\"",
     {}},
};

bool Has(const json& findings, const std::string& kind, const std::string& part, const json& keys) {
    for (const auto& finding : findings) {
        bool fits = finding["kind"] == kind &&
                    finding["text"].get<std::string>().find(part) != std::string::npos;
        for (const auto& [key, value] : keys.items())
            fits = fits && finding.value(key, json()) == value;
        if (fits) return true;
    }
    return false;
}

TEST_F(Findings, AreToldBeforeAFileIsWritten) {
    for (const auto& [document, settings, kind, part, keys] : kCases) {
        SCOPED_TRACE(std::string(kind) + ' ' + part);
        program_.Write("d.json", program_.Read(document));
        std::vector<std::string> set{"set", "d.json"};
        set.insert(set.end(), settings.begin(), settings.end());
        if (!settings.empty()) program_.Done(set);
        program_.Shell("rm -f e.pdf");
        for (const bool stored : {false, true}) {
            const auto findings = Checked("d.json");
            EXPECT_TRUE(Has(findings, kind, part, keys)) << findings.dump(1);
            const auto strict = program_.Run({"export", "d.json", "-o", "e.pdf", "--strict"});
            EXPECT_EQ(strict.status, 1);
            EXPECT_TRUE(Contains(strict.errors, part));
            EXPECT_FALSE(program_.Exists("e.pdf"));
            if (!stored) program_.Done({"generate", "d.json"});
        }
        EXPECT_TRUE(Contains(program_.Done({"export", "d.json", "-o", "e.pdf"}).errors, part));
    }
}

TEST_F(Findings, AreToldFiveOfAKindAndCounted) {
    const auto made = program_.Done({"make", "long.dbf", "-o", "o.pdf", "--sample", "--page-size",
                                     "5x4", "--document", "d.json"});
    EXPECT_TRUE(Contains(made.errors, "in all, 106 listings found no place on a page."));
    std::size_t told = 0;
    for (std::size_t at = 0; (at = made.errors.find(" found no place", at)) != std::string::npos;
         ++at)
        ++told;
    EXPECT_EQ(told, 6U);
    program_.WriteTable("bare.dbf", std::vector(6, std::vector<std::string>{"Ash St", "1"}));
    EXPECT_TRUE(Contains(program_.Done({"make", "bare.dbf", "-o", "o.pdf"}).errors,
                         "in all, 6 records have no value in a field that is printed."));
    EXPECT_EQ(Checked("d.json"), program_.Done({"show", "d.json", "--json"}).Json()["findings"]);
    // Those of other pages are none of an export of some.
    program_.Done({"set", "d.json", "SamplePage=false", "Page.ColumnWidth=9"});
    const auto checked = program_.Done({"check", "d.json", "--json"}).Json();
    EXPECT_EQ(checked["findings"].size(), 102U);
    EXPECT_EQ(checked["findingCounts"],
              json::parse("{\"outside-sheet\": 120, \"heading-left-out\": 2}"));
    EXPECT_TRUE(Contains(program_.Done({"check", "d.json"}).output,
                         "\n  in all, 120 listings and elements lie off the sheet.\n"));
    const auto pages = program_.Done({"show", "d.json", "--json"}).Json()["pages"];
    const auto second = program_.Done({"export", "d.json", "-o", "e.pdf", "--pages", "2"}).errors;
    EXPECT_TRUE(Contains(second, "page 2: "));
    EXPECT_FALSE(Contains(second, "page 1: "));
    EXPECT_TRUE(Contains(second, std::to_string(pages[1]["rows"].size()) + " listings and"));
}

TEST_F(Findings, AreTheSameOfRunsAndOfStoredResults) {
    program_.Done({"new", "low.json", "--listing-database", "streets.dbf", "--frame", "1,1,5,0.1"});
    for (const auto& [document, told] :
         {std::pair{"low.json", "lower than the row of titles"}, {"long.json", "stands alone"}}) {
        const auto run = Checked(document);
        EXPECT_TRUE(Contains(run.dump(), told));
        EXPECT_TRUE(Contains(program_.Done({"generate", document}).errors, told));
        EXPECT_EQ(Checked(document), run);
        const auto shown = program_.Done({"show", document, "--json"});
        EXPECT_EQ(shown.Json()["findings"], shown.Json()["pageCount"] > 0 ? run : json::array());
        EXPECT_FALSE(Contains(shown.errors, told));
        EXPECT_TRUE(Contains(program_.Done({"show", document}).errors, told));
    }
}

TEST_F(Findings, TellElementsOffTheSheet) {
    auto document = json::parse(program_.Read("long.json"));
    for (const auto& [left, told] : {std::pair{1.0, "lies partly off the sheet."},
                                     {20.0, "lies off the sheet and is not printed."}}) {
        document["page"]["elements"][0]["geometry"]["envelope"] = {left, 1, left + 5.5, 4};
        program_.Write("d.json", document.dump());
        EXPECT_TRUE(Has(Checked("d.json"), "outside-sheet", told, {}));
    }
}

TEST_F(Findings, NoneMeansNone) {
    const auto made =
        program_.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "d.json", "--strict"});
    EXPECT_FALSE(Contains(made.errors, "warning"));
    EXPECT_EQ(Checked("d.json"), json::array());
}

// Why a run fails is a reason, too.
TEST_F(Findings, AFailedRunIsAReason) {
    program_.Done({"set", "long.json", "Page.ColumnWidth=0.05"});
    const auto check = program_.Done({"check", "long.json", "--json"});
    EXPECT_EQ(check.errors, "");
    EXPECT_EQ(check.Json()["drawable"], false);
    EXPECT_TRUE(Contains(check.Json()["reasons"][0], "too narrow"));
}

}  // namespace
}  // namespace tests
