#include <fstream>
#include <gtest/gtest.h>
#include <set>

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
        EXPECT_FALSE(Contains(made.errors, "of the frame"));
        const auto tree = program_.Done({"draw", "o.json", "--page", "1", "--json"}).Json();
        const double edge = tree["frame"]["xmax"];
        std::set<double> lefts;
        double right = 0;
        int headings = 0;
        for (const auto& member : tree["members"]) {
            const auto& bounds = member["bounds"];
            lefts.insert(std::round(bounds["xmin"].get<double>() * 1000));
            right = std::max(right, bounds["xmax"].get<double>());
            if (member["tag"] == "BREAKGROUP") ++headings;
        }
        EXPECT_EQ(lefts.size(), groups);
        // Widths are rounded down to thousandths.
        EXPECT_NEAR(right, edge, 0.0011 + groups * 0.001);
        EXPECT_LE(right, edge + 1e-6);
        EXPECT_GT(headings, 1);
    }
}

TEST_F(Print, SheetsCarryHeadNumberBookmarkAndTitle) {
    program_.Done(
        {"make", "long.dbf", "-o", "o.pdf", "--document", "o.json", "--first-page", "97"});
    const auto pages = program_.Done({"show", "o.json", "--json"}).Json()["pages"];
    const auto of = [&](std::size_t page, const char* key) {
        return pages[page][key].get<std::string>().substr(1);  // Without the leading blank.
    };
    ASSERT_GE(pages.size(), 2U);
    EXPECT_TRUE(Contains(program_.Shell("pdfinfo o.pdf"), "Title:           long"));
    const std::string second = program_.Shell("pdftotext -f 2 -l 2 -layout o.pdf -");
    EXPECT_TRUE(Contains(second, of(1, "first") + " \u2013 " + of(1, "last")));
    EXPECT_TRUE(Contains(second.substr(second.rfind(' ')), " 98\n"));
    const std::string bookmarks = program_.Shell("pdftohtml -xml -i -stdout o.pdf");
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_TRUE(Contains(bookmarks, "<item page=\"" + std::to_string(i + 1) + "\">" +
                                            of(i, "name") + "</item>"));
    // Below those of the pages stand the letters; the pages have the printed numbers.
    EXPECT_TRUE(Contains(bookmarks, "<item page=\"1\">B</item>"));
    const std::string file = program_.Shell("qpdf --qdf --object-streams=disable o.pdf -");
    for (const char* part : {"/St 97", "/Lang (en-US)", "/Metadata ", "<dc:title><rdf:Alt>"})
        EXPECT_TRUE(file.find(part) != std::string::npos) << part;

    // A document is labelled with the page that is drawn on it.
    for (const std::size_t page : {1U, 0U}) {
        program_.Done({"draw", "o.json", "--page", std::to_string(page + 1)});
        const auto document = nlohmann::json::parse(program_.Read("o.json"));
        const auto& elements = document["page"]["elements"];
        EXPECT_EQ(elements[1]["tag"], "RUNNINGHEAD");
        EXPECT_EQ(elements[1]["text"], of(page, "first") + " \u2013 " + of(page, "last"));
        EXPECT_EQ(elements[2]["tag"], "SHEETNUMBER");
        EXPECT_EQ(elements[2]["text"], std::to_string(page + 97));
    }
}

// Also where they are several lines, and go on in columns and pages that follow.
TEST_F(Print, EachHeadingIsToldOnce) {
    std::vector<std::vector<std::string>> rows;
    for (const char* kind : {"1 Street ", "Avenue "})
        for (int i = 100; i < 240; ++i) rows.push_back({kind + std::to_string(i), "1", "2", "3"});
    program_.WriteTable("t.dbf", rows);
    const std::string digits = "Names that begin with a number or with any other sign";
    program_.Done({"make", "t.dbf", "-o", "o.pdf", "--page-size", "4x6", "--set",
                   "Typesetting.DigitsHeading=" + digits, "--set",
                   "Typesetting.Continued={letter} (continued from the page or column before)",
                   "--set", "Typesetting.ContinuedAt=column group"});
    EXPECT_TRUE(Contains(program_.Shell("pdftotext -layout o.pdf -"), "(continued from the"));
    EXPECT_EQ(program_.Shell("pdfinfo -struct o.pdf | grep -c H1"), "2\n");
    EXPECT_FALSE(Contains(program_.Shell("pdfinfo -struct-text o.pdf"), "continued"));
    EXPECT_EQ(program_.Shell("pdftohtml -xml -i -stdout o.pdf | grep -c '>" + digits + "</item>'"),
              "1\n");
    EXPECT_FALSE(
        Contains(program_.Shell("pdftohtml -xml -i -stdout o.pdf | grep '</item>'"), "continued"));
}

TEST_F(Print, OverridesComeLast) {
    const auto made = program_.Done({"make", "streets.dbf", "-o", "o.pdf", "--document", "o.json",
                                     "--set", "CombineDelimeter=; ", "--set", "Listing.Title=Place",
                                     "--set", "Page.ColumnFontSymbol=No Such Font,8", "--set",
                                     "Listing.ColumnFontSymbol=DejaVu Serif,8"});
    EXPECT_TRUE(Contains(program_.Read("o.json"), "\"name\":\"DejaVu Serif\",\"size\":9.0"));
    EXPECT_TRUE(Contains(made.errors, "\"No Such Font\" is not installed; \""));
    const auto stored = program_.Stored("o.json");
    EXPECT_EQ(stored["CombineWithNewLine"], false);
    EXPECT_EQ(stored["CombineFirstAndLast"], false);
    EXPECT_EQ(stored["HaveSavedListings"], true);
    const std::string text = program_.Shell("pdftotext -layout o.pdf -");
    EXPECT_TRUE(Contains(text, "Place"));
    EXPECT_TRUE(Contains(text, ";"));
}

TEST_F(Print, APipeIsWrittenToWhenSomethingReadsFromIt) {
    program_.Shell("mkfifo p.pdf; timeout 60 cat p.pdf > got.pdf & " GAZETTEER_PROGRAM
                   " make streets.dbf -o p.pdf 2> told; wait");
    EXPECT_TRUE(Contains(program_.Shell("pdftotext got.pdf - 2>&1"), "Main St"));
    EXPECT_EQ(program_.Shell("stat -c %F p.pdf"), "fifo\n");
}

TEST_F(Print, ImagesAreNumbered) {
    program_.Done({"make", "long.dbf", "-o", "o.svg", "--document", "o.json"});
    program_.Done({"export", "o.json", "-o", "p.PNG", "--pages", "2"});
    for (const char* file : {"o-1.svg", "o-2.svg", "p-2.PNG"}) EXPECT_TRUE(program_.Exists(file));
    for (const char* file : {"o.svg", "p-1.PNG"}) EXPECT_FALSE(program_.Exists(file)) << file;
    program_.Done({"export", "o.json", "-o", "fine.png", "--pages", "2", "--dpi", "300"});
    // Width and height as a PNG begins with them, 2550 by 3300.
    EXPECT_EQ(program_.Read("fine-2.png").substr(16, 8),
              std::string("\0\0\x09\xF6\0\0\x0C\xE4", 8));
    program_.Done({"draw", "o.json", "--page", "2", "-o", "one.png"});
    EXPECT_EQ(program_.Read("one.png"), program_.Read("p-2.PNG"));
}

TEST_F(Print, ProgressIsForTerminals) {
    // A container may have no pseudo-terminals.
    if (!std::ifstream("/dev/ptmx")) GTEST_SKIP() << "there is no pseudo-terminal here";
    const std::string make = GAZETTEER_PROGRAM " make long.dbf -o o.pdf";
    EXPECT_FALSE(Contains(program_.Done({"make", "long.dbf", "-o", "o.pdf"}).errors, "\r"));
    EXPECT_TRUE(Contains(program_.Shell("script -qec '" + make + "' /dev/null"), "\x1b[K"));
    EXPECT_EQ(program_.Shell("script -qec '" + make + " 2>errors' /dev/null"), "");
}

}  // namespace
}  // namespace tests
