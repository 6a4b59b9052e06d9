#include <gtest/gtest.h>
#include <tuple>

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
        EXPECT_TRUE(Contains(made.errors, told));
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
    EXPECT_FALSE(Contains(drawn.errors, "warning"));
    const auto tree = drawn.Json();
    for (const auto& row : tree["members"]) {
        EXPECT_EQ(row["members"].size(), 50U);
        EXPECT_LE(row["bounds"]["xmax"], tree["frame"]["xmax"].get<double>() + 1e-6);
    }
    EXPECT_TRUE(Contains(program.Shell("pdftotext -layout o.pdf -"), "50"));
}

TEST(Sizes, OfSheetsAndFrames) {
    const std::tuple<const char*, const char*, int> cases[] = {
        {"200x200", "0,0,200,200", kDone},
        {"200x200", "", kDone},
        {"200x200", "100,100,0.1,0.1", kCouldNot},
        {"8.5x11", "1,1,2.5,0.1", kCouldNot},
        {"8.5x11", "1,1,2.5,0.5", kDone},
        {"8.5x11", "1,1,0.1,9", kCouldNot},
        {"0.1x0.1", "", kCouldNot},
        {"200.1x10", "", kWrongUsage},
        {"0x10", "", kWrongUsage},
        {"-1x10", "", kWrongUsage},
        {"nanx10", "", kWrongUsage},
        {"8.5x11", "0,0,0,5", kWrongUsage},
        {"8.5x11", "0,0,9,5", kWrongUsage},
        {"8.5x11", "inf,0,1,5", kWrongUsage},
    };
    Trial trial;
    for (const auto& [sheet, frame, status] : cases) {
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
        EXPECT_FALSE(Contains(made.errors, "warning"));
    }
    const auto wide = trial.MakeAndDraw({"long.dbf", "--set", "Listing.ColumnWidth=0.7", "--set",
                                         "Page.ColumnWidth=0.4", "--set", "RepeatSpacing=1"});
    EXPECT_TRUE(Contains(wide.errors, "beyond the right edge"));
}

TEST(Sizes, OfType) {
    const std::pair<const char*, int> cases[] = {
        {"0.5", kDone},  {"2", kDone},       {"72", kDone},           {"400", kDone},
        {"1000", kDone}, {"0", kWrongUsage}, {"1000.5", kWrongUsage},
    };
    Trial trial;
    for (const auto& [points, status] : cases) {
        SCOPED_TRACE(points);
        const std::string font = std::string("FontSymbol=DejaVu Sans,") + points;
        const auto made =
            trial.MakeAndDraw({"names.dbf", "--page-size", "200x200", "--set", "*.Column" + font,
                               "--set", "*.Break" + font, "--set", "*.Title" + font, "--set",
                               "Listing.ColumnWidth=150", "--set", "Page.ColumnWidth=50"});
        EXPECT_EQ(made.status, status) << made.errors;
    }
    // A document may ask for any size.
    const auto& program = trial.TheProgram();
    const std::string document = program.Bytes("names.json");
    for (const std::string size : {"0.0", "1e-300", "-5.0", "20000.0", "1e300"}) {
        SCOPED_TRACE(size);
        program.Write("names.json",
                      gazetteer::ReplaceAll(document, "\"size\":9.0", "\"size\":" + size));
        trial.SetAndDraw("SortColumns=false");
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
        EXPECT_TRUE(Contains(drawn.errors, "below the foot"));
        std::string printed;
        const auto tree = drawn.Json();
        for (const auto& row : tree["members"])
            if (row["tag"] == "ROWGROUP") printed = row["members"][0]["members"][1]["text"];
        EXPECT_TRUE(Without(printed, {"-\r\n", "\r\n", " ", "."}) == Without(text, {" "}));
    }
}

}  // namespace
}  // namespace tests
