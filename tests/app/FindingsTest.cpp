#include <gtest/gtest.h>

#include "app/Program.h"
#include "support/FindingCases.h"

namespace tests {
namespace {

using nlohmann::json;

class Findings : public ::testing::Test {
protected:
    void SetUp() override {
        support::WriteFindingTables(program_);
        for (const char* name : {"long", "odd", "pageless", "rowless", "cut"})
            program_.Done({"make", name + std::string(".dbf"), "-o", "o.pdf", "--document",
                           name + std::string(".json"), "--page-size", support::kFindingPage,
                           "--plain-rules"});
        support::TakeFields(program_);
    }
    json Checked(const std::string& document) const {
        return program_.Done({"check", document, "--json"}).Json()["findings"];
    }

    Program program_;
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
    for (const auto& [document, settings, kind, part, keys] : support::kFindingCases) {
        SCOPED_TRACE(std::string(kind) + ' ' + part);
        program_.Write("d.json", program_.Read(document + std::string(".json")));
        std::vector<std::string> set{"set", "d.json"};
        set.insert(set.end(), settings.begin(), settings.end());
        if (!settings.empty()) program_.Done(set);
        // The export finds them in stored results, the check before in those of a run.
        const auto findings = Checked("d.json");
        EXPECT_TRUE(Has(findings, kind, part, json::parse(keys))) << findings.dump(1);
        EXPECT_TRUE(Contains(program_.Done({"generate", "d.json"}).errors, part));
        const auto strict = program_.Run({"export", "d.json", "-o", "e.pdf", "--strict"});
        EXPECT_EQ(strict.status, 1);
        EXPECT_TRUE(Contains(strict.errors, part));
        EXPECT_FALSE(program_.Exists("e.pdf"));
    }
    program_.Done({"export", "d.json", "-o", "e.pdf"});
    EXPECT_TRUE(program_.Exists("e.pdf"));
}

TEST_F(Findings, LengthsHaveTheUnitOfTheLocale) {
    program_.Done({"set", "long.json", "--locale=sv", "RepeatSpacing=0.8", "Page.ColumnWidth=0.4",
                   "Listing.ColumnWidth=0.7"});
    EXPECT_TRUE(Has(Checked("long.json"), "outside-frame", " mm beyond the right edge of the frame",
                    json::object()));
}

TEST_F(Findings, AreToldFiveOfAKindAndCounted) {
    const auto made = program_.Done({"make", "long.dbf", "-o", "o.pdf", "--sample", "--page-size",
                                     "5x4", "--document", "d.json", "--plain-rules"});
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
    EXPECT_TRUE(Contains(second, std::to_string(pages[1]["rows"].size()) + " listings and"));
    EXPECT_TRUE(Contains(second, "page 2: "));
    EXPECT_FALSE(Contains(second, "page 1: "));
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

// The frame is made smaller, and a stored page taken away, by another program.
TEST_F(Findings, TellListingsThatStoredPagesLeaveOut) {
    program_.Done({"set", "long.json", "--head", ""});
    program_.Done({"generate", "long.json"});
    auto document = json::parse(program_.Read("long.json"));
    const auto printed = [&](const json& changed) {
        program_.Write("d.json", changed.dump());
        program_.Done({"export", "d.json", "-o", "e.pdf"});
        const std::string text = program_.Shell("pdftotext -layout e.pdf -");
        std::size_t streets = 0;
        for (std::size_t at = 0; (at = text.find(" Street", at)) != std::string::npos; ++at)
            ++streets;
        return streets;
    };
    EXPECT_EQ(printed(document), 120U);
    EXPECT_FALSE(Has(Checked("d.json"), "no-place", "", json::object()));
    auto& bottom = document["page"]["elements"][0]["geometry"]["envelope"][1];
    bottom = bottom.get<double>() + 1;
    const std::size_t left = printed(document);
    EXPECT_LT(left, 120U);
    const auto answer = program_.Done({"check", "d.json", "--json"}).Json();
    EXPECT_EQ(answer["findingCounts"]["no-place"], 120 - left);
    EXPECT_TRUE(Has(answer["findings"], "no-place", "is not printed, since the page was numbered",
                    {{"page", 1}}));
}

TEST_F(Findings, TellResultsThatAreOld) {
    program_.WriteTable("some.dbf", {{"Ash St", "6", "2", "3"}});
    program_.Done({"make", "some.dbf", "-o", "o.pdf", "--document", "d.json", "--strict"});
    EXPECT_EQ(Checked("d.json"), json::array());
    const auto printed = [&](std::vector<std::string> options) {
        options.insert(options.begin(), {"export", "d.json", "-o", "e.pdf"});
        const auto status = program_.Run(options).status;
        return status == 0 ? program_.Shell("pdftotext -layout e.pdf -") : "";
    };
    const auto before = printed({"--strict"});
    program_.WriteTable("some.dbf", {{"Ash St", "77", "2", "3"}});
    EXPECT_TRUE(Has(Checked("d.json"), "old-results", "has changed since", json::object()));
    EXPECT_EQ(printed({"--strict"}), "");
    EXPECT_EQ(printed({}), before);
    program_.Done({"generate", "d.json"});
    EXPECT_EQ(Checked("d.json"), json::array());
    EXPECT_NE(printed({"--strict"}), before);
}

// Another program has taken the columns of stored results.
TEST_F(Findings, NeedColumns) {
    program_.Done({"generate", "long.json"});
    program_.Shell(
        R"(sed -z -E 's/("ColumnDisplayOrder",\{"set":)[^{}]*\}/\1[]}/' long.json >d.json)");
    EXPECT_TRUE(program_.Read("d.json") != program_.Read("long.json"));
    program_.Done({"check", "d.json"});
}

TEST_F(Findings, TellElementsOffTheSheet) {
    auto document = json::parse(program_.Read("long.json"));
    for (const auto& [left, told] : {std::pair{1.0, "lies partly off the sheet."},
                                     {20.0, "lies off the sheet and is not printed."}}) {
        document["page"]["elements"][0]["geometry"]["envelope"] = {left, 1, left + 5.5, 4};
        program_.Write("d.json", document.dump());
        EXPECT_TRUE(Has(Checked("d.json"), "outside-sheet", told, json::object()));
    }
}

TEST_F(Findings, NoneMeansNone) {
    const auto made =
        program_.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "d.json", "--strict"});
    EXPECT_FALSE(Contains(made.errors, "warning"));
    EXPECT_EQ(Checked("d.json"), json::array());
    // What is not read is told and spoils no page.
    support::DbfBuilder({{"Listing"}, {"Page"}, {"Notes", 'M'}})
        .Row({"Main St", "6"})
        .Write(program_.File("memo.dbf"));
    EXPECT_TRUE(Contains(program_
                             .Done({"make", "memo.dbf", "-o", "o.pdf", "--strict", "--set",
                                    "Page.Expression=$$PAGE_NUMBER"})
                             .errors,
                         "memo texts and pictures are not read (Notes)"));
}

// Once each, and by every command.
TEST_F(Findings, TellOfAllFonts) {
    const auto made = program_.Done({"make", "long.dbf", "-o", "o.pdf", "--sample", "--document",
                                     "d.json", "--set", "Listing.ColumnFontSymbol=No Such Font,8"});
    const auto check = program_.Done({"check", "d.json"});
    EXPECT_EQ(check.errors, "");
    const auto exported = program_.Done({"export", "d.json", "-o", "o.pdf"});
    const auto count = [](std::string text) {
        const std::string phrase = "is not installed";
        std::size_t times = 0;
        for (std::size_t at = 0; (at = text.find(phrase, at)) != std::string::npos; ++at) ++times;
        return times;
    };
    EXPECT_EQ(count(check.output), count(made.errors));
    EXPECT_EQ(count(check.output), count(exported.errors));
}

// The key, what is stored under it, and the reason.
const std::tuple<const char*, const char*, const char*> kWrongKinds[] = {
    {"ColumnWidth", R"({"set":[]})",
     "Column \"Listing\": ColumnWidth must be a number of inches from -1000 to 1000."},
    {"MarginTop", R"({"object":null})", "Column \"Listing\": MarginTop must be a number"},
    {"Title", "null", "Column \"Listing\": Title must be a text."},
    {"ShowTitle", R"("maybe")", "Column \"Listing\": ShowTitle must be true or false."},
    {"RepeatSpacing", R"({"set":[]})", "RepeatSpacing must be a number of inches"},
    {"RepeatSpacing", "null", "RepeatSpacing must be a number of inches"},
    {"DefaultPage", R"({"object":null})", "DefaultPage must be a whole number."},
};

TEST_F(Findings, AWrongKindOfStoredValueIsAReason) {
    program_.Done({"new", "new.json", "--listing-database", "long.dbf"});
    for (const char* document : {"new.json", "long.json"})  // Without and with stored results.
        for (const auto& [key, value, reason] : kWrongKinds) {
            program_.Shell(std::string("sed -E '0,/\"") + key + "\",[^]]+/s//\"" + key + "\"," +
                           value + "/' " + document + " >d.json");
            SCOPED_TRACE(program_.Read("d.json"));
            const auto check = program_.Done({"check", "d.json", "--json"});
            EXPECT_EQ(check.errors, "");
            EXPECT_EQ(check.Json()["drawable"], false);
            EXPECT_TRUE(Contains(check.Json()["reasons"][0], reason));
            EXPECT_EQ(program_.Done({"show", "d.json", "--json"}).Json()["drawable"], false);
        }
}

// Why a run fails is a reason, too.
TEST_F(Findings, AFailedRunIsAReason) {
    program_.Done({"set", "long.json", "Page.ColumnWidth=0.05"});
    const auto check = program_.Done({"check", "long.json", "--json"});
    EXPECT_EQ(check.errors, "");
    EXPECT_EQ(check.Json()["drawable"], false);
    EXPECT_TRUE(Contains(check.Json()["reasons"][0], "too narrow for selected Font! (column"));
    program_.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "d.json"});
    auto document = json::parse(program_.Read("d.json"));
    document["page"]["elements"][0].erase("geometry");
    program_.Write("d.json", document.dump());
    const std::string noPlace = "the gazetteer's frame has no place on the sheet.";
    EXPECT_TRUE(Contains(program_.Done({"check", "d.json"}).output, noPlace));
    const auto drawn = program_.Run({"draw", "d.json", "--page", "1", "--json"});
    EXPECT_EQ(drawn.status, 1);
    EXPECT_TRUE(Contains(drawn.errors, noPlace));
}

}  // namespace
}  // namespace tests
