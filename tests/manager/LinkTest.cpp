#include <gtest/gtest.h>

#include "support/TestDesk.h"

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

class Link : public ::testing::Test {
protected:
    Link() {
        desk.UseBook(kBook, {{"REGION"}, {{"North"}, {"South"}}});
        element = desk.NewGazetteer(
            desk.GridTable({{"Ash", "1", "3", "2"}, {"Birch", "2", "40", "1"}}), 4.5, 3);
        Set("LinkToMapSeries", true);
        Set("MapSeriesSectionKey", std::string("maps"));
        Set("MapSeriesTemplateKey", std::string("sheet"));
        Set("MapSeriesFrameName", std::string("Main map"));
    }
    void Set(const char* key, host::Variant value) {
        desk.Properties(element)->SetItem(key, std::move(value));
    }
    std::vector<std::string> Run() {
        CVNGazetteerManager manager(desk.HostRef());
        manager.SetIndexElement(element);
        findings = manager.LastFindings();
        return manager.CanDraw() ? desk.ListingTexts(manager) : std::vector<std::string>{};
    }
    TestDesk desk;
    host::Ref<host::IHostGroupElement> element;
    Findings findings;
};

TEST_F(Link, IndexLayerColumnsSeeCorrectedPagesAndLabels) {
    desk.Column(element, "Page")->SetItem("FromDatabase", false);
    desk.Column(element, "Page")
        ->SetItem("Expression", std::string("$$PAGE_NUMBER $$ROW-$$COLUMN [Region]"));
    // The section starts at page 5 and the template stands on its second page.
    EXPECT_EQ(Run(), (std::vector<std::string>{"Ash|6 C-j North", "Birch|7 40-i South"}));
}

// Fields that are not there count as 0, which no grid is asked about.
TEST_F(Link, TableWithoutGridFields) {
    const auto link = {"MapSeriesSectionKey", "MapSeriesTemplateKey", "MapSeriesFrameName"};
    const auto linked = element;
    element = desk.NewGazetteer(desk.ListingTable({{"Ash", "1"}}), 4.5, 3);
    for (const char* key : link) Set(key, desk.Properties(linked)->Item(key));
    Set("LinkToMapSeries", true);
    desk.Column(element, "Page")->SetItem("FromDatabase", false);
    desk.Column(element, "Page")
        ->SetItem("Expression", std::string("$$PAGE_NUMBER $$ROW-$$COLUMN"));
    EXPECT_EQ(Run(), (std::vector<std::string>{"Ash|6 0-0"}));
}

TEST_F(Link, DatabaseColumnsSeeRawValues) {
    EXPECT_EQ(Run(), (std::vector<std::string>{"Ash|1 3-2", "Birch|2 40-1"}));
}

TEST_F(Link, SeriesBehindTheGazetteerMovesNoPage) {
    desk.UseBook(std::string(kBook).replace(std::string(kBook).find("\"index\""), 7, "\"front\""),
                 {{"REGION"}, {{"North"}, {"South"}}});
    desk.Column(element, "Page")->SetItem("FromDatabase", false);
    desk.Column(element, "Page")->SetItem("Expression", std::string("$$PAGE_NUMBER"));
    EXPECT_EQ(Run(), (std::vector<std::string>{"Ash|1", "Birch|2"}));
}

TEST_F(Link, BrokenLinksAreNamed) {
    struct Case {
        const char* key;
        const char* value;
        const char* finding;
    };
    const Case cases[] = {
        {"MapSeriesTemplateKey", "gone",
         "The linked template \"gone\" is not in the section \"maps\"."},
        {"MapSeriesFrameName", "Plain",
         "There is no map series frame \"Plain\" with an index layer on the template \"sheet\"."},
        {"MapSeriesFrameName", "Deep",
         "There is no map series frame \"Deep\" with an index layer on the template \"sheet\"."},
    };
    for (const Case& c : cases) {
        const auto old = desk.Properties(element)->Item(c.key);
        Set(c.key, std::string(c.value));
        EXPECT_TRUE(Run().empty()) << c.value;
        ASSERT_FALSE(findings.empty()) << c.value;
        EXPECT_EQ(findings.front(), c.finding);
        Set(c.key, old);
    }
}

// The book is asked about a section before anybody knows that it is there.
TEST_F(Link, StaleSectionEndsTheCheck) {
    Set("MapSeriesSectionKey", std::string("gone"));
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
    element = desk.NewGazetteer(desk.GridTable({{"Ash", "1", "3", "2"}, {"Birch", "", "1", "1"}}),
                                4.5, 3);
    for (const auto& [key, value] : {std::pair{"MapSeriesSectionKey", "maps"},
                                     {"MapSeriesTemplateKey", "sheet"},
                                     {"MapSeriesFrameName", "Main map"}})
        Set(key, std::string(value));
    Set("LinkToMapSeries", true);
    desk.Column(element, "Page")->SetItem("FromDatabase", false);
    Run();
    EXPECT_EQ(desk.Dialogs().LastFact("record"), "2");
    EXPECT_EQ(desk.Dialogs().LastFact("field"), "Page");
    EXPECT_EQ(desk.Dialogs().LastFact("value"), "(none)");
    EXPECT_EQ(desk.Dialogs().LastFact("column"), "Page");
}

TEST_F(Link, ColumnsAreCheckedAgainstTheirTables) {
    desk.Column(element, "Page")->SetItem("Expression", std::string("[Nowhere]"));
    EXPECT_TRUE(Run().empty());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].find("Column \"Page\""), std::string::npos);
    EXPECT_NE(findings[0].find("Nowhere"), std::string::npos);

    Set("LinkToMapSeries", false);
    desk.Column(element, "Page")->SetItem("Expression", std::string("[Listing]"));
    desk.Column(element, "Page")->SetItem("FromDatabase", false);
    EXPECT_TRUE(Run().empty());
    EXPECT_NE(findings.at(0).find("not linked"), std::string::npos);
}

}  // namespace
}  // namespace gazetteer
