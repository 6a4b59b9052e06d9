#include <gtest/gtest.h>

#include "app/Program.h"
#include "support/Text.h"

namespace tests {
namespace {

using nlohmann::json;

TEST(NewDocuments, HoldTheDefaultColumnsAndWhatIsAsked) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf", "--page-size", "6x9",
                  "--frame", "0.5,1,5,7", "--set", "DefaultPage=3", "--set", "*.ColumnWidth=2.4",
                  "--sample"});
    const auto page = json::parse(program.Read("d.json"))["page"];
    EXPECT_EQ(json({page["width"], page["height"]}), json({6.0, 9.0}));
    EXPECT_EQ(page["elements"][0]["geometry"]["envelope"], json({0.5, 1.0, 5.5, 8.0}));
    const auto stored = program.Stored("d.json");
    EXPECT_EQ(stored["IndexDatabaseFile"], program.File("streets.dbf"));
    EXPECT_EQ(stored["ColumnSortOrder"], json({{"Listing", true}, {"Page", true}}));
    const auto& columns = stored["ColumnsProperties"];
    EXPECT_EQ(columns["Listing"]["Expression"], "[Listing]");
    EXPECT_EQ(columns["Page"]["Expression"], "$$PAGE_NUMBER $$ROW-$$COLUMN");
    EXPECT_EQ(columns["Page"]["ColumnWidth"], 2.4);
    EXPECT_EQ(stored["DefaultPage"], 3);
    EXPECT_EQ(stored["HaveSavedListings"], false);
    for (const char* on : {"SamplePage", "CombineWithNewLine", "CombineFirstAndLast"})
        EXPECT_EQ(stored[on], true) << on;
}

// Order and numbers hang on the locale.
TEST(Documents, KeepWhatTheyWereToldInAnyEnvironment) {
    const Program program;
    support::DbfBuilder table({{"LISTING", 'C', 20}, {"PAGE", 'N', 6, 1}});
    table.LanguageDriver(0x57);
    for (const char* name : {"Zagreb", "\xC4rla", "Aachen", "\xD6rebro", "Oslo"})
        table.Row({name, "1.5"});
    table.Write(program.File("names.dbf"));
    for (const char* given : {"--locale sv --page-size a5 --columns 2", "--locale de --title Orte",
                              "--first-page 97", ""}) {
        SCOPED_TRACE(given);
        const std::string make = "rm -rf moved d.json; LC_ALL=da_DK.UTF-8 " GAZETTEER_PROGRAM
                                 " make names.dbf -o o.pdf --document d.json ";
        program.Shell(make + given);
        for (const char* environment : {"sv_SE.UTF-8", "C", "de_DE.UTF-8"}) {
            program.Shell(std::string("LC_ALL=") + environment +
                          " " GAZETTEER_PROGRAM " export d.json -o e.pdf");
            EXPECT_EQ(program.Read("e.pdf"), program.Read("o.pdf")) << environment;
        }
        // What is set drops the results; the new ones are in the old order.
        program.Done({"set", "d.json", "CombineDelimeter=, "});
        // The table is found beside the document.
        program.Shell("mkdir moved; cp names.dbf d.json moved; mv names.dbf away.dbf");
        program.Done({"export", "moved/d.json", "-o", "e.pdf"});
        EXPECT_EQ(program.Read("e.pdf"), program.Read("o.pdf"));
        program.Shell("mv away.dbf names.dbf");
    }
    EXPECT_TRUE(Contains(program.Shell("pdftotext e.pdf -"), "Zagreb"));
}

TEST(Set, DropsResultsAndChecksAnew) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    program.Done({"generate", "d.json"});
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
    EXPECT_EQ(stored["ColumnSortOrder"]["Page"], false);
    const auto list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Page", "Listing"}));
    EXPECT_EQ(list["sortOrder"], json({"Page", "Listing"}));

    // What makes the gazetteer undrawable is stored all the same.
    for (const char* broken : {"Listing.ColumnWidth=9", "Listing.Expression=[Nowhere]",
                               "IndexDatabaseFile=gone.dbf", "LinkToMapSeries=true"}) {
        program.Done({"new", "d.json", "--force", "--listing-database", "streets.dbf"});
        program.Done({"set", "d.json", broken});
        EXPECT_EQ(program.Stored("d.json")["CanDrawIndex"], false) << broken;
    }
}

// Stored by another program or by hand.
TEST(Set, RepairsTypesetting) {
    const Program program;
    const auto replace = [&](const std::string& stored, const std::string& other) {
        std::string document = program.Read("d.json");
        ASSERT_NE(document.find(stored), std::string::npos) << stored;
        program.Write("d.json", gazetteer::ReplaceAll(document, stored, other));
    };
    const auto typesetting = [&] {
        return program.Done({"show", "d.json", "--json"}).Json()["typesetting"];
    };
    program.Done({"new", "d.json", "--listing-database", "streets.dbf"});
    const auto negative =
        program.Done({"set", "d.json", "Typesetting.LeaderStyle=aligned",
                      "Typesetting.Direction=auto", "Typesetting.HangingIndent=-0.5"});
    EXPECT_TRUE(Contains(negative.errors, "Typesetting.HangingIndent is negative"));
    replace("\"aligned\"", "\"dotted\"");
    replace("\"auto\"", "\"downwards\"");
    EXPECT_EQ(typesetting()["LeaderStyle"], "plain");
    EXPECT_EQ(typesetting()["Direction"], "left to right");
    replace("\"HangingIndent\",-0.5", "\"HangingIndent\",\"wide\"");
    const auto refused = program.Run({"set", "d.json", "SortColumns=false"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(Contains(refused.errors, "Typesetting.HangingIndent"));
    program.Done({"set", "d.json", "Typesetting=none"});
    EXPECT_EQ(typesetting(), nullptr);
}

json Labelled(const Program& program, const char* tag) {
    const auto document = json::parse(program.Read("d.json"));
    for (const auto& element : document["page"]["elements"])
        if (element["tag"] == tag) return element;
    return {};
}

TEST(Set, ChangesThePageAndTheTextsBesideTheIndex) {
    const Program program;
    program.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "d.json"});
    program.Done({"set", "d.json", "--page-size", "a4", "--first-page", "9", "--head",
                  "Streets $$FIRST", "--number-font", "DejaVu Sans,7"});
    // The margins stay, and the texts stand as before beside the frame.
    const auto document = json::parse(program.Read("d.json"));
    const auto frame = document["page"]["elements"][0]["geometry"]["envelope"];
    EXPECT_NEAR(frame[2], 210 / 25.4 - 0.5, 1e-9);
    EXPECT_NEAR(frame[3], 297 / 25.4 - 0.75, 1e-9);
    EXPECT_NEAR(Labelled(program, "RUNNINGHEAD")["geometry"]["point"][1], 297 / 25.4 - 0.75 + 0.13,
                1e-9);
    EXPECT_EQ(program.Stored("d.json")["HaveSavedListings"], false);

    // A font that was never chosen follows the index, one that was stays.
    program.Done({"set", "d.json", "*.ColumnFontSymbol=DejaVu Serif,8"});
    program.Done({"draw", "d.json", "--page", "1"});
    auto head = Labelled(program, "RUNNINGHEAD");
    EXPECT_EQ(head["text"].get<std::string>().substr(0, 8), "Streets ");
    EXPECT_EQ(head["symbol"]["font"]["name"], "DejaVu Serif");
    EXPECT_EQ(head["symbol"]["font"]["bold"], true);
    EXPECT_EQ(Labelled(program, "SHEETNUMBER")["symbol"]["font"]["name"], "DejaVu Sans");
    EXPECT_EQ(Labelled(program, "SHEETNUMBER")["text"], "9");

    program.Done({"set", "d.json", "--head", "", "--sheet-number", "false"});
    EXPECT_TRUE(Labelled(program, "RUNNINGHEAD").is_null());
    EXPECT_TRUE(Labelled(program, "SHEETNUMBER").is_null());
}

TEST(Columns, AreAddedLikeTheFirstOneAndRemoved) {
    const Program program;
    program.Done({"new", "d.json", "--listing-database", "streets.dbf", "--set",
                  "Listing.ColumnWidth=1.25", "--set", "Listing.ColumnFontSymbol=DejaVu Sans,7"});
    program.Done(
        {"column", "add", "d.json", " map square no ", "Expression=[Row]", "MarginLeft=0.1"});
    auto list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Listing", "Page", "map_squa"}));
    const json expected = {{"Title", "map_squa"},
                           {"Expression", "[Row]"},
                           {"ColumnWidth", 1.25},
                           {"ColumnFontSymbol", "DejaVu Sans,7"},
                           {"MarginLeft", 0.1}};
    for (const auto& [key, value] : expected.items()) EXPECT_EQ(list["columns"][2][key], value);

    program.Done({"column", "remove", "d.json", "MAP_SQUA"});
    list = program.Done({"column", "list", "d.json", "--json"}).Json();
    EXPECT_EQ(list["displayOrder"], json({"Listing", "Page"}));
    EXPECT_FALSE(program.Stored("d.json")["ColumnsProperties"].contains("map_squa"));
}

}  // namespace
}  // namespace tests
