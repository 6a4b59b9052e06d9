#include <gtest/gtest.h>
#include <tuple>

#include "app/Program.h"

namespace tests {
namespace {

const std::string kExamples = GAZETTEER_SOURCE_DIR "/examples/";

// Table, locale, number of listings, and lines of the PDF, each below the one before.
const std::tuple<const char*, const char*, std::size_t, std::vector<std::string>> kAll[] = {
    {"czechia-slovakia", "cs", 1420, {"Humpolec", "Cheb", "Ostrava ..."}},
    {"vietnam", "vi", 611, {"D\u01B0\u01A1ng \u0110\u00F4ng", "\u0110\u00E0 N\u1EB5ng"}},
    {"streets", "en", 714, {"2nd St ...", "10th St ...", "AVE 2 .", "AVE 10"}},
    {"scripts", "en", 62, {"\u0141\u00F3d\u017A", "\u041A\u0438\u0457\u0432", "\u6771\u4EAC"}},
    {"atlas", "sv", 2177, {"Reykjav\u00EDk", "\u00C5sele", "\u00D6verum"}},
};

TEST(Examples, AllMake) {
    const Program program;
    for (const auto& [table, locale, listings, lines] : kAll) {
        const auto made = program.Done({"make", kExamples + table + ".dbf", "-o", "o.pdf",
                                        "--document", "o.json", "--locale", locale});
        SCOPED_TRACE(table);
        EXPECT_FALSE(Contains(made.errors, "of the frame"));
        const auto shown = program.Done({"show", "o.json", "--json"}).Json();
        EXPECT_EQ(shown["listings"].size(), listings);
        const std::string pages = "Pages:           " + std::to_string(shown["pages"].size());
        EXPECT_TRUE(Contains(program.Shell("pdfinfo o.pdf"), pages));
        const std::string text = program.Shell("pdftotext o.pdf -");
        std::size_t at = 0;
        for (const auto& line : lines) {
            at = text.find('\n' + line, at);
            EXPECT_NE(at, std::string::npos) << line;
        }
    }
}

int GroupsOfSecondPage(const Program& program) {
    int groups = 0;
    const auto page = program.Done({"draw", "index.json", "--page", "2", "--json"}).Json();
    for (const auto& member : page["members"]) groups += member["tag"] == "TITLEGROUP";
    return groups;
}

TEST(Examples, HaveTheColumnGroupsAskedFor) {
    const Program program;
    for (const auto& [size, groups] : {std::pair{"letter", 1},
                                       {"letter", 2},
                                       {"letter", 7},
                                       {"letter", 8},
                                       {"letter", 12},
                                       {"a5", 7},
                                       {"tabloid", 16}}) {
        program.Done({"make", kExamples + "czechia-slovakia.dbf", "-o", "o.pdf", "--document",
                      "index.json", "--page-size", size, "--columns", std::to_string(groups)});
        EXPECT_EQ(GroupsOfSecondPage(program), groups) << size;
    }
}

// As the documents say, on both sizes of paper.
TEST(Examples, AThirdColumnLeavesThreeGroups) {
    const Program program;
    for (const char* guide : {"README.md", "docs/manual.md", "docs/alphabets.md"})
        for (const char* size : {"letter", "a4"}) {
            SCOPED_TRACE(std::string(guide) + ' ' + size);
            program.Done({"make", kExamples + "czechia-slovakia.dbf", "-o", "o.pdf", "--document",
                          "index.json", "--page-size", size});
            const std::string commands =
                program.Shell("sed -n '/^gazetteer column add/,/^```/p' " GAZETTEER_SOURCE_DIR "/" +
                              std::string(guide) +
                              " | sed '/^```/d; s/names.json/index.json/; s/INITIAL/Country/'");
            program.Shell("gazetteer() { " GAZETTEER_PROGRAM " \"$@\"; }; rm -f names.pdf\n" +
                          commands);
            EXPECT_EQ(GroupsOfSecondPage(program), 3);
            EXPECT_EQ(program.Stored("index.json")["ColumnDisplayOrder"].size(), 3U);
        }
}

// A new book has the same pages, and grids of letters and numbers as the atlas has.
TEST(Examples, TheAtlasIsLinkedToItsBookAndToANewOne) {
    const Program program;
    program.Done({"book", "new", "own.json", "--sheets", kExamples + "atlas-sheets.dbf",
                  "--start-page", "5"});
    for (const std::string& book : {kExamples + "atlas-book.json", std::string("own.json")}) {
        program.Done({"new", "atlas.json", "--force", "--listing-database", kExamples + "atlas.dbf",
                      "--book", book});
        program.Done({"set", "atlas.json", "LinkToMapSeries=true", "MapSeriesSectionKey=maps",
                      "MapSeriesTemplateKey=sheet", "MapSeriesFrameName=Main map",
                      "Page.FromDatabase=false"});
        program.Done({"column", "add", "atlas.json", "Region", "Expression=[REGION]",
                      "FromDatabase=false", "ColumnWidth=1"});
        EXPECT_EQ(program.Stored("atlas.json")["CanDrawIndex"], true) << book;
        const auto shown = program.Done({"show", "atlas.json", "--json"}).Json();
        nlohmann::json found;
        for (const auto& listing : shown["listings"])
            if (listing["cells"]["Listing"] == "Reykjav\u00EDk") found = listing["cells"];
        EXPECT_EQ(found["Page"], "7 C-5") << book;
        EXPECT_EQ(found["Region"], "Iceland") << book;
    }

    program.WriteTable("beyond.dbf", {{"Good", "1", "1", "1"}, {"Bad", "1", "1", "99"}});
    program.Done({"set", "atlas.json", "IndexDatabaseFile=beyond.dbf"});
    EXPECT_TRUE(
        Contains(program.Done({"generate", "atlas.json"}).errors,
                 "record 2, \"Bad\": the field \"Column\" is 99, but the grid of the map has "
                 "10 columns."));

    // A record whose reference is no number is named.
    support::DbfBuilder({{"LISTING"}, {"PAGE"}, {"ROW"}, {"COLUMN"}})
        .Row({"Good", "1", "1", "1"})
        .Row({"Gone", "y", "y", "y"}, true)
        .Row({"Bad", "1", "1", "1-2"})
        .Write(program.File("odd.dbf"));
    program.Done({"set", "atlas.json", "IndexDatabaseFile=odd.dbf"});
    const auto outcome = program.Run({"generate", "atlas.json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.errors, "record 3"));
    EXPECT_TRUE(Contains(outcome.errors, "field \"Column\", value \"1-2\""));
}

}  // namespace
}  // namespace tests
