#include <gtest/gtest.h>

#include "app/Program.h"

namespace tests {
namespace {

using nlohmann::json;

class Results : public ::testing::Test {
protected:
    void SetUp() override {
        program_.Done({"new", "d.json", "--listing-database", "streets.dbf", "--set",
                       "*.ColumnFontSymbol=Liberation Sans,8", "--set",
                       "*.TitleFontSymbol=Liberation Sans,8", "--set",
                       "*.BreakFontSymbol=Liberation Sans,8"});
    }
    json Drawn() const { return program_.Done({"draw", "d.json", "--page", "1", "--json"}).Json(); }
    Program program_;
};

TEST_F(Results, ShowTellsPagesAndListings) {
    const auto shown = program_.Done({"show", "d.json", "--json"});
    EXPECT_EQ(shown.Json(), json::parse(R"({"drawable": true, "defaultPage": 1, "pageCount": 1,
        "columns": ["Listing", "Page"],
        "pages": [{"page": 1, "name": " Abbey Road -  Main St", "first": " Abbey Road",
                   "last": " Main St", "rows": ["2", "1"]}],
        "listings": [
         {"row": "2", "cells": {"Listing": "Abbey Road", "Page": "4 1-2$$NEWLINE9 3-1"}},
         {"row": "1", "cells": {"Listing": "Main St", "Page": "6 2-3"}}],
        "typesetting": null, "findings": []})"));
    EXPECT_TRUE(Contains(shown.errors,
                         "4 records: 2 listings, 1 duplicate dropped, 1 reference "
                         "combined, 1 page."));
    EXPECT_TRUE(Contains(program_.Done({"show", "d.json"}).output, "Abbey Road -  Main St"));
}

TEST_F(Results, ShowKeepsItsShapeWithoutPages) {
    const auto nothing = json::parse(R"({"drawable": false, "defaultPage": 0, "pageCount": 0,
        "columns": [], "pages": [], "listings": [], "typesetting": null, "findings": []})");
    program_.Done({"set", "d.json", "Listing.Expression=[Nowhere]"});
    program_.Done({"new", "low.json", "--listing-database", "streets.dbf", "--frame", "1,1,5,0.1"});
    program_.Write("bare.json", R"({"format":"desk document","version":1,"title":"t",
        "page":{"width":8.5,"height":11.0,"elements":[]}})");
    for (const char* document : {"d.json", "low.json", "bare.json"})
        EXPECT_EQ(program_.Done({"show", document, "--json"}).Json(), nothing) << document;
    EXPECT_EQ(program_.Done({"check", "bare.json", "--json"}).Json()["reasons"].size(), 1U);
}

TEST_F(Results, DrawPrintsTheElementTree) {
    program_.Done(
        {"set", "d.json", "Listing.ColorBackground=false", "Page.BackgroundSymbol=#0A1B2C"});
    auto tree = Drawn();
    std::string tags;
    for (const auto& member : tree["members"]) tags += member["tag"].get<std::string>() + ' ';
    // Titles come last, on top. Nothing stands before the first listing without a starting break.
    EXPECT_EQ(tags, "ROWGROUP BREAKGROUP ROWGROUP TITLEGROUP ");
    const auto row = tree["members"][0];
    EXPECT_NEAR(row["bounds"]["xmin"], 0.5, 1e-9);
    EXPECT_NEAR(row["bounds"]["xmax"], 4.5, 1e-9);
    EXPECT_EQ(row["members"][1]["members"][0]["fill"], "#0A1B2C");
    auto cell = row["members"][0];
    EXPECT_NEAR(cell["members"][1]["at"]["x"], 0.55, 1e-9);
    cell["members"][1].erase("at");
    for (auto* boxed : {&cell, &cell["members"][0]}) boxed->erase("bounds");
    EXPECT_EQ(cell, json::parse(R"({"tag": "COLUMNELEMENT", "members": [
        {"tag": "COLUMNBACKGROUND", "fill": null},
        {"tag": "COLUMNTEXT", "text": "Abbey Road", "font": "Liberation Sans", "size": 8.0,
         "bold": false, "italic": false, "color": "#000000", "horizontal": 0, "vertical": 1, "angle": 0.0}]})"));
    EXPECT_NEAR(tree["frame"]["xmax"], 8.0, 1e-9);
    for (const char* part : {"members", "frame"}) tree.erase(part);
    EXPECT_EQ(tree, json({{"page", 1}, {"pageCount", 1}, {"draft", false}}));
}

TEST_F(Results, DrawTellsOfForeignMembersTagAndKindAlone) {
    program_.Done({"draw", "d.json", "--page", "1"});
    auto document = json::parse(program_.Read("d.json"));
    auto& members = document["page"]["elements"][0]["members"];
    auto ownMembers = members[0]["members"][0]["members"];
    ownMembers[0]["tag"] = "SHADE";
    ownMembers[1]["tag"] = "NORTH";
    members.insert(members.end(), ownMembers.begin(), ownMembers.end());
    program_.Write("d.json", document.dump());
    const auto tree = Drawn();
    std::vector<json> foreign;
    for (const auto& member : tree["members"])
        if (!member.contains("members")) foreign.push_back(member);
    EXPECT_EQ(foreign, (std::vector<json>{{{"tag", "SHADE"}, {"kind", "rectangle"}},
                                          {{"tag", "NORTH"}, {"kind", "text"}}}));
}

TEST_F(Results, AreOnDiskOnceACommandSaves) {
    const auto fresh = program_.Read("d.json");
    const std::vector<std::string> reading[] = {{"show", "d.json"},
                                                {"check", "d.json"},
                                                {"column", "list", "d.json"},
                                                {"export", "d.json", "-o", "d.pdf"},
                                                {"draw", "d.json", "--page", "1", "-o", "d.svg"}};
    for (const auto& command : reading) program_.Done(command);
    EXPECT_EQ(program_.Read("d.json"), fresh);

    program_.Done({"generate", "d.json"});
    const auto generated = program_.Read("d.json");
    EXPECT_NE(generated, fresh);
    EXPECT_EQ(program_.Done({"generate", "d.json"}).errors, "");
    EXPECT_EQ(program_.Read("d.json"), generated);

    program_.Done({"draw", "d.json", "--page", "1"});
    EXPECT_TRUE(Contains(program_.Read("d.json"), "ROWGROUP"));
    program_.Done({"draft", "d.json"});
    const auto draft = program_.Read("d.json");
    EXPECT_FALSE(Contains(draft, "ROWGROUP"));
    EXPECT_EQ(json::parse(draft)["page"]["elements"][0]["draft"], true);
    EXPECT_EQ(program_.Stored("d.json")["HaveSavedListings"], true);

    // Those of every binding are never stored.
    program_.Done({"set", "d.json", "AutoRefreshListings=true"});
    const auto before = program_.Read("d.json");
    EXPECT_TRUE(Contains(program_.Done({"generate", "d.json"}).errors, "4 records"));
    EXPECT_EQ(program_.Read("d.json"), before);
}

TEST_F(Results, CheckGivesEveryReason) {
    EXPECT_EQ(program_.Done({"check", "d.json", "--json"}).Json(),
              json({{"drawable", true}, {"reasons", json::array()}, {"findings", json::array()}}));
    program_.Done({"set", "d.json", "Listing.Expression=[Nowhere]", "Page.FromDatabase=false"});
    const auto check = program_.Done({"check", "d.json", "--json"}).Json();
    EXPECT_EQ(check["drawable"], false);
    ASSERT_EQ(check["reasons"].size(), 2U);
    EXPECT_TRUE(Contains(check["reasons"][0], "Nowhere"));
    EXPECT_TRUE(Contains(check["reasons"][1], "Page"));
    // A check that fails on its way is an answer, too, and told once.
    program_.Write("broken.dbf", "no table");
    program_.Done({"set", "d.json", "IndexDatabaseFile=broken.dbf"});
    const auto broken = program_.Done({"check", "d.json", "--json"});
    EXPECT_EQ(broken.errors, "");
    EXPECT_EQ(broken.Json()["reasons"].size(), 1U);
}

TEST_F(Results, TableTellsHowAFileIsRead) {
    support::DbfBuilder table({{"NAME", 'C', 8}, {"SHEET", 'N', 5, 1}, {"SEEN", 'L', 1}});
    table.LanguageDriver(0x57).Row({"K\xF6ln ", "2.5", "T"}).Row({"x", "1"}, true).Row({"y"});
    table.Write(program_.File("t.dbf"));
    auto shown = program_.Done({"table", "t.dbf", "--json"}).Json();
    EXPECT_EQ(shown["fields"][1],
              json({{"name", "SHEET"}, {"type", "N"}, {"length", 5}, {"decimals", 1}}));
    shown.erase("fields");
    EXPECT_EQ(shown, json::parse(R"({"file": "t.dbf", "encoding": "windows-1252",
        "encodingFrom": "language driver 0x57", "records": 2,
        "rows": [["K\u00F6ln", "2.5", "True"], ["y", null, null]], "warnings": []})"));
    const auto limited = program_.Done({"table", "t.dbf", "--json", "--limit", "1"}).Json();
    EXPECT_EQ(limited["rows"].size(), 1U);

    // A first value that is empty keeps its place, and no value controls the terminal.
    support::DbfBuilder({{"NAME", 'C', 12}, {"SHEET", 'N', 5}})
        .Row({"", "7"})
        .Row({"\x1B[31mRed\x07", "8"})
        .Write(program_.File("odd.dbf"));
    const std::string text = program_.Done({"table", "odd.dbf"}).output;
    EXPECT_TRUE(Contains(text, "\n\t7\n\uFFFD[31mRed\uFFFD\t8\n"));

    const std::string good = program_.Read("streets.dbf");
    program_.Write("cut.dbf", good.substr(0, good.size() - 20));
    const std::string told = program_.Done({"make", "cut.dbf", "-o", "o.pdf"}).errors;
    EXPECT_TRUE(Contains(told, "cut.dbf") && Contains(told, "1 is missing"));
    const auto cut = program_.Done({"table", "cut.dbf", "--json"}).Json();
    EXPECT_EQ(cut["rows"].size(), 3U);
    EXPECT_EQ(cut["warnings"].size(), 1U);
}

}  // namespace
}  // namespace tests
