#include <fcntl.h>
#include <gtest/gtest.h>
#include <set>
#include <stdlib.h>
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
        EXPECT_FALSE(Contains(made.errors, "warning"));
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
        // Widths are rounded down to thousandths.
        EXPECT_NEAR(right, frame["xmax"], 0.0011 + groups * 0.001);
        EXPECT_LE(right, frame["xmax"].get<double>() + 1e-6);
        EXPECT_GT(headings, 1);
    }
}

TEST_F(Print, SheetsCarryHeadNumberBookmarkAndTitle) {
    program_.Done({"make", "long.dbf", "-o", "o.pdf", "--document", "o.json"});
    const auto pages = program_.Done({"show", "o.json", "--json"}).Json()["pages"];
    const auto of = [&](std::size_t page, const char* key) {
        return pages[page][key].get<std::string>().substr(1);  // Without the leading blank.
    };
    ASSERT_GE(pages.size(), 2U);
    const std::string info = program_.Shell("pdfinfo o.pdf");
    EXPECT_TRUE(Contains(info, "Title:           long"));
    EXPECT_TRUE(Contains(info, "Pages:           " + std::to_string(pages.size())));
    const std::string second = program_.Shell("pdftotext -f 2 -l 2 -layout o.pdf -");
    EXPECT_TRUE(Contains(second, of(1, "first") + " \u2013 " + of(1, "last")));
    EXPECT_TRUE(Contains(second.substr(second.rfind(' ')), " 2\n"));
    const std::string bookmarks = program_.Shell("pdftohtml -xml -i -stdout o.pdf");
    for (std::size_t i = 0; i < pages.size(); ++i)
        EXPECT_TRUE(Contains(bookmarks, "<item page=\"" + std::to_string(i + 1) + "\">" +
                                            of(i, "name") + "</item>"));
}

TEST_F(Print, ADrawnDocumentIsLabelledWithItsPage) {
    program_.Done({"make", "long.dbf", "-o", "o.pdf", "--document", "o.json"});
    for (const char* page : {"2", "1"}) {
        program_.Done({"draw", "o.json", "--page", page});
        const auto document = nlohmann::json::parse(program_.Bytes("o.json"));
        const auto& elements = document["page"]["elements"];
        EXPECT_EQ(elements[1]["tag"], "RUNNINGHEAD");
        const auto& head = elements[1]["text"].get_ref<const std::string&>();
        EXPECT_EQ(head.starts_with("Aa Street"), page == std::string("1")) << head;
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
    EXPECT_TRUE(Contains(text, "Place"));
    EXPECT_TRUE(Contains(text, ";"));
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

TEST_F(Print, ProgressIsForTerminals) {
    // A container may have no pseudo-terminals.
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) GTEST_SKIP() << "there is no pseudo-terminal here";
    ::close(terminal);
    const std::string make = GAZETTEER_PROGRAM " make long.dbf -o o.pdf";
    EXPECT_FALSE(Contains(program_.Done({"make", "long.dbf", "-o", "o.pdf"}).errors, "\r"));
    EXPECT_TRUE(Contains(program_.Shell("script -qec '" + make + "' /dev/null"), "\x1b[K"));
    EXPECT_EQ(program_.Shell("script -qec '" + make + " 2>errors' /dev/null"), "");
}

TEST_F(Print, AFontThatIsMissingIsTold) {
    const auto made = program_.Done(
        {"make", "streets.dbf", "-o", "o.pdf", "--set", "*.ColumnFontSymbol=No Such Font,8"});
    EXPECT_TRUE(Contains(made.errors, "\"No Such Font\" is not installed; \""));
}

}  // namespace
}  // namespace tests
