#include <gtest/gtest.h>

#include "model/Paths.h"
#include "support/Assignments.h"
#include "support/TestDesk.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using support::TestDesk;

// A book of a map section and an index section behind it. The series starts at page 1 on the first
// sheet; the section at book page 5. The index layer has a region for each of two sheets.
constexpr char kBook[] = R"({"currentTemplate": "index", "books": [{"key": "atlas", "sections": [
   {"key": "early", "name": "Early", "startPage": 1, "pages": ["front$1"],
    "templates": [{"key": "front", "name": "Front", "layout": []}]},
   {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["cover$1", "sheet$1", "sheet$2"],
    "templates": [{"key": "cover", "name": "Cover", "layout": []},
     {"key": "sheet", "name": "Map sheet", "layout": [
      {"kind": "mapFrame", "name": "Plain"},
      {"kind": "group", "members": [{"kind": "mapFrame", "name": "Main map",
       "series": {"indexLayer": "sheets.dbf", "firstPage": 1, "grids": [
         {"kind": "index", "visible": false, "rows": ["x"], "columns": ["y"]},
         {"kind": "index", "visible": true, "rows": ["A", "B", "C"], "columns": ["i", "j"]}]}},
         {"kind": "group", "members": [{"kind": "mapFrame", "name": "Deep",
          "series": {"indexLayer": "sheets.dbf", "firstPage": 1, "grids": []}}]}]}]}]},
   {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})";

const support::Assignments kLinked = {{"LinkToMapSeries", true},
                                      {"MapSeriesSectionKey", "maps"},
                                      {"MapSeriesTemplateKey", "sheet"},
                                      {"MapSeriesFrameName", "Main map"}};

class Link : public ::testing::Test {
protected:
    using Listings = std::vector<std::string>;

    void UseBook(const std::string& book) {
        desk.UseBook(book, {{"REGION"}, {{"North"}, {"South"}}});
    }
    void NewElement(const std::string& table) {
        element = desk.NewGazetteer(table, 4.5, 3);
        Store(kLinked);
    }
    void SetUp() override {
        UseBook(kBook);
        NewElement(desk.GridTable({{"Ash", "1", "3", "2"}, {"Birch", "2", "40", "1"}}));
    }
    void Store(const support::Assignments& values) { support::Store(desk, element, values); }
    /// Of a column Page that is not from the database.
    Listings RunLinked(const char* expression) {
        Store({{"Page.FromDatabase", false}, {"Page.Expression", expression}});
        return Run();
    }
    Listings Run() {
        CVNGazetteerManager manager(desk.HostRef());
        manager.SetIndexElement(element);
        findings = manager.LastFindings();
        return manager.CanDraw() ? desk.ListingTexts(manager) : Listings{};
    }
    TestDesk desk;
    TestDesk::Group element;
    Findings findings;
};

TEST_F(Link, ColumnsSeeCorrectedPagesOrThoseOfTheDatabase) {
    EXPECT_EQ(Run(), (Listings{"Ash|1 3-2", "Birch|2 40-1"}));
    Store({{"HaveSavedListings", false}});
    // The section starts at page 5 and the template stands on its second page.
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER $$ROW-$$COLUMN [Region]"),
              (Listings{"Ash|6 C-j North", "Birch|7 40-i South"}));
}

// Fields that are not there count as 0, which no grid is asked about.
TEST_F(Link, TableWithoutGridFields) {
    NewElement(desk.ListingTable({{"Ash", "1"}}));
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER $$ROW-$$COLUMN"), Listings{"Ash|6 0-0"});
}

TEST_F(Link, SeriesBehindTheGazetteerMovesNoPage) {
    UseBook(ReplaceAll(kBook, R"("currentTemplate": "index")", R"("currentTemplate": "front")"));
    EXPECT_EQ(RunLinked("$$PAGE_NUMBER"), (Listings{"Ash|1", "Birch|2"}));
}

TEST_F(Link, BrokenLinksAreNamed) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"MapSeriesTemplateKey", "gone",
         "The linked template \"gone\" is not in the section \"maps\"."},
        {"MapSeriesFrameName", "Plain",
         "There is no map series frame \"Plain\" with an index layer on the template \"sheet\"."},
        {"MapSeriesFrameName", "Deep",
         "There is no map series frame \"Deep\" with an index layer on the template \"sheet\"."},
    };
    for (const auto& [key, value, finding] : cases) {
        Store(kLinked);
        Store({{key, value}});
        EXPECT_TRUE(Run().empty()) << value;
        ASSERT_FALSE(findings.empty()) << value;
        EXPECT_EQ(findings.front(), finding);
    }
}

TEST_F(Link, PagesBeyondALongAreFailures) {
    UseBook(ReplaceAll(kBook, R"("startPage": 5, "pages": ["cover$1", "sheet$1")",
                       R"("startPage": 2147483647, "pages": ["cover$1", "sheet$0")"));
    EXPECT_TRUE(RunLinked("$$PAGE_NUMBER").empty());
    EXPECT_EQ(desk.Dialogs().LastFact("page"), "2147483649");
}

// The book is asked about a section before anybody knows that it is there.
TEST_F(Link, StaleSectionEndsTheCheck) {
    Store({{"MapSeriesSectionKey", "gone"}});
    CVNGazetteerManager manager(desk.HostRef());
    EXPECT_FALSE(manager.CanDrawIndex(element));
    EXPECT_NE(manager.LastFindings().at(0).find("gone"), std::string::npos);
    manager.SetIndexElement(element);
    EXPECT_TRUE(manager.CanDraw());  // As stored at the last apply.
    EXPECT_EQ(std::get<std::int32_t>(manager.PageCount()), 0);
    EXPECT_EQ(manager.LastListing(0), "");
    EXPECT_EQ(desk.Dialogs().messages.size(), 3U);
}

TEST_F(Link, ValueThatIsNoNumberNamesRecordAndField) {
    NewElement(desk.GridTable({{"Ash", "1", "3", "2"}, {"Birch", "", "1", "1"}}));
    RunLinked("$$PAGE_NUMBER");
    for (const auto& [fact, value] :
         {std::pair{"record", "2"}, {"field", "Page"}, {"value", "(none)"}, {"column", "Page"}})
        EXPECT_EQ(desk.Dialogs().LastFact(fact), value) << fact;
}

TEST_F(Link, ColumnsAreCheckedAgainstTheirTables) {
    Store({{"Page.Expression", "[Nowhere]"}});
    EXPECT_TRUE(Run().empty());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].find("Column \"Page\""), std::string::npos);
    EXPECT_NE(findings[0].find("Nowhere"), std::string::npos);

    Store({{"LinkToMapSeries", false}});
    EXPECT_TRUE(RunLinked("[Listing]").empty());
    EXPECT_NE(findings.at(0).find("not linked"), std::string::npos);
}

// An engine as other hosts may have it.
struct OtherEngine : host::CVNExpressionEngine {
    bool IsValidExpression(const host::Ref<host::IHostTable>& /*table*/,
                           const std::string& /*expression*/) override {
        return false;
    }
    std::string Evaluate(const host::Ref<host::IHostTable>& /*table*/,
                         const host::Ref<host::IHostRow>& /*row*/,
                         const std::string& /*expression*/,
                         const host::TokenValues& /*tokens*/) override {
        return {};
    }
    std::string EditExpression(const host::Ref<host::IHostTable>& /*table*/,
                               const std::string& /*expression*/,
                               const std::vector<host::TokenDescription>& /*tokens*/) override {
        return {};
    }
};
struct FailingExplanation : OtherEngine, host::IHostExpressionExplanation {
    host::ExpressionFinding Explain(const host::Ref<host::IHostTable>& /*table*/,
                                    const std::string& /*expression*/) override {
        throw host::Failure(host::kFailureUnspecified, "", "No words.");
    }
};

TEST_F(Link, VerdictsNeedNoExplanation) {
    OtherEngine plain;
    FailingExplanation failing;
    const auto properties = desk.Properties(element);
    const auto table =
        OpenTableFile(desk.Host(), std::get<std::string>(properties->Item("IndexDatabaseFile")));
    for (host::CVNExpressionEngine* engine : {&plain, static_cast<OtherEngine*>(&failing)}) {
        findings.clear();
        EXPECT_FALSE(CheckColumnExpressions(*engine, desk.Host().Locale(), *properties,
                                            {table, nullptr}, findings));
        EXPECT_EQ(findings.at(0), "Column \"Listing\": the expression \"[Listing]\" is not valid.");
    }
}

}  // namespace
}  // namespace gazetteer
