#include <gtest/gtest.h>

#include "limits/Trial.h"
#include "support/Text.h"

namespace tests {
namespace {

constexpr int kDone = 0;
constexpr int kCouldNot = 1;
constexpr int kWrongUsage = 2;

TEST(Sizes, OfListings) {
    Trial trial;
    for (const int listings : {0, 1, 2, 5000}) {
        SCOPED_TRACE(listings);
        trial.TheProgram().WriteLongTable("long.dbf", listings);
        const auto made = trial.MakeAndDraw({"long.dbf"});
        EXPECT_EQ(made.status, listings == 0 ? kCouldNot : kDone) << made.errors;
        const std::string told =
            listings == 0 ? "no records" : std::to_string(listings) + " record";
        EXPECT_NE(made.errors.find(told), std::string::npos) << made.errors;
    }
}

// As many columns as 50, added one by one; each takes its share of the frame.
TEST(Sizes, OfColumns) {
    Trial trial;
    const auto& program = trial.TheProgram();
    program.Done({"set", "names.json", "*.MarginLeft=0", "*.MarginRight=0", "*.ColumnWidth=0.15",
                  "*.Title=", "*.ColumnFontSymbol=DejaVu Sans,2", "*.BreakHeading=false"});
    for (int column = 3; column <= 50; ++column)
        program.Done({"column", "add", "names.json", "C" + std::to_string(column),
                      "Title=", "ColumnWidth=0.15", "Expression=" + std::to_string(column)});
    const auto drawn = program.Done({"draw", "names.json", "--page", "1", "--json", "-o", "o.pdf"});
    EXPECT_EQ(drawn.errors.find("warning"), std::string::npos) << drawn.errors;
    const auto tree = drawn.Json();
    for (const auto& row : tree["members"]) {
        EXPECT_EQ(row["members"].size(), 50U);
        EXPECT_LE(row["bounds"]["xmax"], tree["frame"]["xmax"].get<double>() + 1e-6);
    }
    EXPECT_NE(program.Shell("pdftotext -layout o.pdf -").find("50"), std::string::npos);
}

TEST(Sizes, OfSheetsAndFrames) {
    struct Case {
        const char* sheet;
        const char* frame;
        int status;
    };
    Trial trial;
    for (const auto& [sheet, frame, status] : {
             Case{"200x200", "0,0,200,200", kDone},
             Case{"200x200", "", kDone},
             Case{"200x200", "100,100,0.1,0.1", kCouldNot},
             Case{"8.5x11", "1,1,2.5,0.1", kCouldNot},
             Case{"8.5x11", "1,1,2.5,0.5", kDone},
             Case{"8.5x11", "1,1,0.1,9", kCouldNot},
             Case{"0.1x0.1", "", kCouldNot},
             Case{"200.1x10", "", kWrongUsage},
             Case{"0x10", "", kWrongUsage},
             Case{"-1x10", "", kWrongUsage},
             Case{"nanx10", "", kWrongUsage},
             Case{"8.5x11", "0,0,0,5", kWrongUsage},
             Case{"8.5x11", "0,0,9,5", kWrongUsage},
             Case{"8.5x11", "inf,0,1,5", kWrongUsage},
         }) {
        SCOPED_TRACE(std::string(sheet) + ' ' + frame);
        const auto made = trial.MakeAndDraw({"names.dbf", "--page-size", sheet, "--frame", frame});
        EXPECT_EQ(made.status, status) << made.errors;
    }
}

// On the widest sheets the column groups are wider, but none stands out of the frame.
TEST(Sizes, OfColumnGroups) {
    Trial trial;
    trial.TheProgram().WriteLongTable("long.dbf", 5000);
    for (const char* sheet : {"4x2", "36x4", "37.5x4", "60x2", "200x2"}) {
        SCOPED_TRACE(sheet);
        const auto made = trial.MakeAndDraw({"long.dbf", "--page-size", sheet});
        EXPECT_EQ(made.errors.find("warning"), std::string::npos) << made.errors;
    }
    const auto wide = trial.MakeAndDraw({"long.dbf", "--set", "Listing.ColumnWidth=0.7", "--set",
                                         "Page.ColumnWidth=0.4", "--set", "RepeatSpacing=1"});
    EXPECT_NE(wide.errors.find("beyond the right edge"), std::string::npos) << wide.errors;
}

// A document may ask for any size.
TEST(Sizes, OfTypeInADocument) {
    Trial trial;
    const auto& program = trial.TheProgram();
    const std::string document = program.Bytes("names.json");
    for (const char* size : {"0.0", "1e-300", "-5.0", "20000.0", "1e300"}) {
        SCOPED_TRACE(size);
        program.Write("names.json", gazetteer::ReplaceAll(document, "\"size\":9.0",
                                                          std::string("\"size\":") + size));
        trial.SetAndDraw("SortColumns=false");
    }
}

TEST(Sizes, OfType) {
    struct Case {
        const char* points;
        int status;
    };
    Trial trial;
    for (const auto& [points, status] : {
             Case{"0.5", kDone},
             Case{"2", kDone},
             Case{"72", kDone},
             Case{"400", kDone},
             Case{"1000", kDone},
             Case{"1000.5", kWrongUsage},
             Case{"0", kWrongUsage},
         }) {
        SCOPED_TRACE(points);
        std::vector<std::string> options{"names.dbf", "--page-size", "200x200"};
        for (const char* symbol : {"ColumnFontSymbol", "BreakFontSymbol", "TitleFontSymbol"})
            options.insert(options.end(),
                           {"--set", std::string("*.") + symbol + "=DejaVu Sans," + points});
        for (const char* width : {"Listing.ColumnWidth=150", "Page.ColumnWidth=50"})
            options.insert(options.end(), {"--set", width});
        const auto made = trial.MakeAndDraw(options);
        EXPECT_EQ(made.status, status) << made.errors;
    }
}

std::string Without(std::string text, const std::vector<std::string>& pieces) {
    for (const auto& piece : pieces) text = gazetteer::ReplaceAll(std::move(text), piece, "");
    return text;
}

// A text of 100,000 bytes wraps as any other, and none of its letters is lost.
TEST(Sizes, OfATextInAColumn) {
    constexpr std::size_t kBytes = 100'000;
    Trial trial;
    const auto& program = trial.TheProgram();
    for (const char* piece : {"A", "lorem ", "\u4EAC", "\u0628", "e\u0301 "}) {
        SCOPED_TRACE(piece);
        std::string text;
        while (text.size() < kBytes) text += piece;
        program.Write("trial.json", program.Bytes("names.json"));
        program.Done({"set", "trial.json", "Listing.Expression=" + text + "$$DOTS"});
        const auto drawn =
            program.Done({"draw", "trial.json", "--page", "1", "--json", "-o", "page.pdf"});
        EXPECT_NE(drawn.errors.find("below the foot"), std::string::npos) << drawn.errors;
        std::string printed;
        const auto tree = drawn.Json();
        for (const auto& row : tree["members"])
            if (row["tag"] == "ROWGROUP") printed = row["members"][0]["members"][1]["text"];
        EXPECT_TRUE(Without(printed, {"-\r\n", "\r\n", " ", "."}) == Without(text, {" "}));
    }
}

}  // namespace
}  // namespace tests
