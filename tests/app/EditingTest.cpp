#include <gtest/gtest.h>

#include "app/Program.h"

namespace tests {
namespace {

using nlohmann::json;

TEST(NewDocuments, HoldTheDefaultColumnsAndWhatIsAsked) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf", "--page-size", "6x9",
                  "--frame", "0.5,1,5,7", "--set", "DefaultPage=3", "--set", "*.ColumnWidth=2.4",
                  "--sample"});
    const auto page = json::parse(program.Bytes("d.json"))["page"];
    EXPECT_EQ(page["width"], 6.0);
    EXPECT_EQ(page["height"], 9.0);
    EXPECT_EQ(page["elements"][0]["geometry"]["envelope"], json({0.5, 1.0, 5.5, 8.0}));
    const auto stored = program.Stored("d.json");
    EXPECT_EQ(stored["IndexDatabaseFile"], program.File("streets.dbf"));
    EXPECT_EQ(stored["ColumnSortOrder"], json({{"Listing", true}, {"Page", true}}));
    const auto& columns = stored["ColumnsProperties"];
    EXPECT_EQ(columns["Listing"]["Expression"], "[Listing]");
    EXPECT_EQ(columns["Page"]["Expression"], "$$PAGE_NUMBER $$ROW-$$COLUMN");
    EXPECT_EQ(columns["Page"]["ColumnWidth"], 2.4);
    EXPECT_EQ(stored["DefaultPage"], 3);
    EXPECT_EQ(stored["SamplePage"], true);
    EXPECT_EQ(stored["CombineWithNewLine"], true);
    EXPECT_EQ(stored["CombineFirstAndLast"], true);
    EXPECT_EQ(stored["HaveSavedListings"], false);
}

TEST(Set, DropsResultsAndChecksAnew) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    program.Done({"generate", "d.json"});
    ASSERT_EQ(program.Stored("d.json")["HaveSavedListings"], true);
    ASSERT_FALSE(program.Stored("d.json")["PageGroups"].empty());

    program.Done({"set", "d.json", "CombineDelimeter= / ", "ColumnSortOrder=Page:off,Listing",
                  "ColumnDisplayOrder=Page,Listing"});
    auto stored = program.Stored("d.json");
    EXPECT_EQ(stored["HaveSavedListings"], false);
    for (const char* results :
         {"SavedListings", "PageGroups", "PageFirstListings", "PageLastListings"})
        EXPECT_EQ(stored[results], json::object()) << results;
    EXPECT_EQ(stored["CombineDelimeter"], " / ");
    EXPECT_EQ(stored["CanDrawIndex"], true);
    const auto list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Page", "Listing"}));
    EXPECT_EQ(list["sortOrder"], json({"Page", "Listing"}));
    EXPECT_EQ(stored["ColumnSortOrder"]["Page"], false);

    // What makes the gazetteer undrawable is stored all the same.
    for (const char* broken : {"Listing.ColumnWidth=9", "Listing.Expression=[Nowhere]",
                               "IndexDatabaseFile=gone.dbf", "LinkToMapSeries=true"}) {
        program.Done({"new", "d.json", "--force", "--listing-database", "streets.dbf"});
        program.Done({"set", "d.json", broken});
        EXPECT_EQ(program.Stored("d.json")["CanDrawIndex"], false) << broken;
    }
}

// Of another version than is known these options count as off, and stay so.
TEST(Set, ChangesNothingElse) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf", "--set",
                  "CombineFirstAndLast=false"});
    auto bytes = program.Bytes("d.json");
    const auto at = bytes.find(R"({"integer":3})");
    ASSERT_NE(at, std::string::npos);
    program.Write("d.json", bytes.replace(at, 13, R"({"integer":7})"));
    program.Done({"set", "d.json", "DefaultPage=2"});
    EXPECT_EQ(program.Stored("d.json")["CombineFirstAndLast"], false);
}

TEST(Columns, AreAddedLikeTheFirstOneAndRemoved) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf", "--set",
                  "Listing.ColumnWidth=1.25", "--set", "Listing.ColumnFontSymbol=DejaVu Sans,7"});
    program.Done(
        {"column", "add", "d.json", " map square no ", "Expression=[Row]", "MarginLeft=0.1"});
    auto list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Listing", "Page", "map_squa"}));
    const auto& added = list["columns"][2];
    EXPECT_EQ(added["Title"], "map_squa");
    EXPECT_EQ(added["Expression"], "[Row]");
    EXPECT_EQ(added["ColumnWidth"], 1.25);
    EXPECT_EQ(added["ColumnFontSymbol"], "DejaVu Sans,7");
    EXPECT_EQ(added["MarginLeft"], 0.1);

    program.Done({"column", "remove", "d.json", "MAP_SQUA"});
    list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Listing", "Page"}));
    EXPECT_FALSE(program.Stored("d.json")["ColumnsProperties"].contains("map_squa"));
}

}  // namespace
}  // namespace tests
