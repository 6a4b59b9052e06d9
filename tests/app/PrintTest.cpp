#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <stdlib.h>
#include <thread>
#include <unistd.h>

#include "app/Program.h"

namespace tests {
namespace {

class Print : public ::testing::Test {
protected:
    void SetUp() override { program_.WriteLongTable("long.dbf", 520); }
    Program program_;
};

TEST_F(Print, MakesAnIndexThatFillsTheSheet) {
    for (const auto& [sheet, groups] :
         {std::pair{"letter", 3U}, std::pair{"a4", 3U}, std::pair{"6x9", 2U},
          std::pair{"5.5x8.5", 2U}, std::pair{"7x10", 2U}, std::pair{"4x6", 1U},
          std::pair{"11x17", 4U}}) {
        SCOPED_TRACE(sheet);
        const auto made = program_.Done(
            {"make", "long.dbf", "-o", "o.pdf", "--document", "o.json", "--page-size", sheet});
        EXPECT_EQ(made.errors.find("warning"), std::string::npos) << made.errors;
        const auto tree = program_.Done({"draw", "o.json", "--page", "1", "--json"}).Json();
        const auto& frame = tree["frame"];
        std::set<double> lefts;
        double right = 0;
        int headings = 0;
        for (const auto& member : tree["members"]) {
            const auto& bounds = member["bounds"];
            lefts.insert(std::round(bounds["xmin"].get<double>() * 1000));
            right = std::max(right, bounds["xmax"].get<double>());
            EXPECT_GE(bounds["ymin"].get<double>(), frame["ymin"].get<double>() - 1e-6);
            EXPECT_LE(bounds["ymax"].get<double>(), frame["ymax"].get<double>() + 1e-6);
            if (member["tag"] == "BREAKGROUP") ++headings;
        }
        EXPECT_EQ(lefts.size(), groups);
        EXPECT_NEAR(right, frame["xmax"], 0.0011);
        EXPECT_LE(right, frame["xmax"].get<double>() + 1e-6);
        EXPECT_GT(headings, 1);
    }
}

TEST_F(Print, LeadersEndWithinADotOfOneEdge) {
    program_.Done({"make", "long.dbf", "-o", "o.pdf"});
    // Words with their boxes in points: lines of "<word xMin= yMin= xMax= yMax=>text</word>".
    const std::string words = program_.Shell("pdftotext -bbox o.pdf -");
    std::vector<double> ends;
    for (std::size_t at = words.find("..</word>"); at != std::string::npos;
         at = words.find("..</word>", at + 1)) {
        const auto edge = words.rfind("xMax=\"", at) + 6;
        const double end = std::stod(words.substr(edge));
        if (end < 204) ends.push_back(end);  // The first of three column groups.
    }
    ASSERT_GT(ends.size(), 100U);
    const auto [least, most] = std::ranges::minmax(ends);
    EXPECT_LT(most - least, 8 * 0.278 + 0.05);  // A dot of the font is 0.278 em wide.
}

TEST_F(Print, SheetsCarryHeadNumberBookmarkAndTitle) {
    program_.Done({"make", "long.dbf", "-o", "o.pdf", "--document", "o.json"});
    const auto pages = program_.Done({"show", "o.json", "--json"}).Json()["pages"];
    ASSERT_GE(pages.size(), 2U);
    const std::string info = program_.Shell("pdfinfo o.pdf");
    EXPECT_NE(info.find("Title:           long"), std::string::npos) << info;
    EXPECT_NE(info.find("Pages:           " + std::to_string(pages.size())), std::string::npos);
    const std::string second = program_.Shell("pdftotext -f 2 -l 2 -layout o.pdf -");
    const std::string first = pages[1]["first"].get<std::string>().substr(1);
    const std::string head = first + " \u2013 " + pages[1]["last"].get<std::string>().substr(1);
    EXPECT_NE(second.find(head), std::string::npos) << second;
    EXPECT_NE(second.find(" 2\n", second.rfind(' ')), std::string::npos);
    const std::string bookmarks = program_.Shell("pdftohtml -xml -i -stdout o.pdf");
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string name = pages[i]["name"].get<std::string>().substr(1);
        EXPECT_NE(
            bookmarks.find("<item page=\"" + std::to_string(i + 1) + "\">" + name + "</item>"),
            std::string::npos)
            << name << "\n"
            << bookmarks;
    }
}

TEST_F(Print, ADrawnDocumentIsLabelledWithItsPage) {
    program_.Done({"make", "long.dbf", "-o", "o.pdf", "--document", "o.json"});
    for (const char* page : {"2", "1"}) {
        program_.Done({"draw", "o.json", "--page", page});
        const auto document = nlohmann::json::parse(program_.Bytes("o.json"));
        const auto& elements = document["page"]["elements"];
        EXPECT_EQ(elements[1]["tag"], "RUNNINGHEAD");
        EXPECT_EQ(elements[1]["text"].get<std::string>().starts_with("Aa Street"),
                  page == std::string("1"));
        EXPECT_EQ(elements[2]["tag"], "SHEETNUMBER");
        EXPECT_EQ(elements[2]["text"], page);
    }
}

TEST_F(Print, OverridesComeLast) {
    program_.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "o.json", "--set",
                   "CombineDelimeter=; ", "--set", "Listing.Title=Place"});
    const auto stored = program_.Stored("o.json");
    EXPECT_EQ(stored["CombineDelimeter"], "; ");
    EXPECT_EQ(stored["ColumnsProperties"]["Listing"]["Title"], "Place");
    EXPECT_EQ(stored["CombineWithNewLine"], false);
    EXPECT_EQ(stored["CombineFirstAndLast"], false);
    EXPECT_EQ(stored["HaveSavedListings"], true);
    const std::string text = program_.Shell("pdftotext -layout o.pdf -");
    EXPECT_NE(text.find("Place"), std::string::npos) << text;
    EXPECT_NE(text.find(";"), std::string::npos) << text;
}

TEST_F(Print, ImagesAreNumbered) {
    program_.Done({"make", "long.dbf", "-o", "o.svg", "--document", "o.json"});
    EXPECT_TRUE(program_.Exists("o-1.svg"));
    EXPECT_TRUE(program_.Exists("o-2.svg"));
    EXPECT_FALSE(program_.Exists("o.svg"));
    program_.Done({"export", "o.json", "-o", "p.PNG", "--pages", "2"});
    EXPECT_TRUE(program_.Exists("p-2.PNG"));
    EXPECT_FALSE(program_.Exists("p-1.PNG"));
    program_.Done({"draw", "o.json", "--page", "2", "-o", "one.png"});
    EXPECT_EQ(program_.Bytes("one.png"), program_.Bytes("p-2.PNG"));
}

TEST_F(Print, TextsOfEveryScriptComeBackFromThePdf) {
    const std::vector<std::string> names = {"\u00C6r\u00F8",
                                            "\u0110\u00E0 N\u1EB5ng",
                                            "\u0391\u03B8\u03AE\u03BD\u03B1",
                                            "\u041C\u043E\u0441\u043A\u0432\u0430",
                                            "\u0627\u0644\u0642\u0627\u0647\u0631\u0629",
                                            "\u5317\u4EAC"};
    std::vector<std::vector<std::string>> rows;
    for (const auto& name : names) rows.push_back({name, "1", "2", "3"});
    program_.WriteTable("names.dbf", rows);
    program_.Write("names.cpg", "UTF-8");
    const auto made = program_.Done({"make", "names.dbf", "-o", "o.pdf"});
    EXPECT_EQ(made.errors.find("warning"), std::string::npos) << made.errors;
    const std::string text = program_.Shell("pdftotext o.pdf -");
    for (const auto& name : names) EXPECT_NE(text.find(name), std::string::npos) << name;
    const std::string fonts = program_.Shell("pdffonts o.pdf");
    EXPECT_EQ(fonts.find(" no "), std::string::npos) << "a font is not embedded\n" << fonts;
}

TEST_F(Print, TheSameInputGivesTheSameBytes) {
    const auto make = [&](const char* name) {
        const std::string ending = name;
        for (const char* output : {".pdf", ".svg", ".png"})
            program_.Done(
                {"make", "long.dbf", "-o", ending + output, "--document", ending + ".json"});
        program_.Done({"draw", ending + ".json", "--page", "2"});
    };
    make("a");
    // Times are stored in seconds.
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    make("b");
    for (const char* file : {".pdf", "-1.svg", "-2.png", ".json"})
        EXPECT_EQ(program_.Bytes(std::string("a") + file), program_.Bytes(std::string("b") + file))
            << file;
}

TEST_F(Print, ProgressIsForTerminals) {
    // A container may have no pseudo-terminals.
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) GTEST_SKIP() << "there is no pseudo-terminal here";
    ::close(terminal);
    const std::string make = GAZETTEER_PROGRAM " make long.dbf -o o.pdf";
    EXPECT_EQ(program_.Run({"make", "long.dbf", "-o", "o.pdf"}).errors.find('\r'),
              std::string::npos);
    const std::string seen = program_.Shell("script -qec '" + make + "' /dev/null");
    EXPECT_NE(seen.find("\x1b[K"), std::string::npos) << seen;
    EXPECT_EQ(program_.Shell("script -qec '" + make + " 2>errors' /dev/null"), "");
}

TEST_F(Print, AFontThatIsMissingIsTold) {
    const auto made = program_.Done(
        {"make", "streets.dbf", "-o", "o.pdf", "--set", "*.ColumnFontSymbol=No Such Font,8"});
    EXPECT_NE(made.errors.find("\"No Such Font\" is not installed; \""), std::string::npos)
        << made.errors;
}

TEST_F(Print, AReplacedFileStaysWhereMakingFails) {
    program_.Done({"make", "streets.dbf", "-o", "o.pdf"});
    const auto before = program_.Bytes("o.pdf");
    EXPECT_EQ(program_.Run({"make", "streets.dbf", "-o", "o.pdf", "--set", "Page.ColumnWidth=0.05"})
                  .status,
              1);
    EXPECT_EQ(program_.Bytes("o.pdf"), before);
}

}  // namespace
}  // namespace tests
