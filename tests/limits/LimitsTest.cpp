#include <gtest/gtest.h>
#include <map>
#include <tuple>

#include "limits/Trial.h"
#include "model/Keys.h"
#include "support/Text.h"

namespace tests {
namespace {

using gazetteer::ValueKind;
using Values = std::vector<std::string>;

/// A text of 100,000 bytes.
std::string Long(const std::string& piece) {
    constexpr std::size_t kBytes = 100'000;
    std::string text;
    while (text.size() < kBytes) text += piece;
    return text;
}

const Values kWhole = {"0", "-1", "2147483647", "-2147483648", "2147483648", "1.5", ""};

// The edges of each kind: least, largest, zero, negative, empty, very long, not finite, no value.
const std::map<ValueKind, Values> kEdges = {
    {ValueKind::Boolean, {"true", "false", "", "yes"}},
    {ValueKind::Integer, kWhole},
    {ValueKind::Long, kWhole},
    {ValueKind::Double,
     {"0", "-0.01", "-1e300", "1e-300", "0.001", "5", "200", "1e300", "1e309", "inf", "nan", "1,5",
      "0x1", ""}},
    {ValueKind::String,
     {"", " ", "left", "$$DOTS$$DOTS", Long("$$DOTS"), "$$NEWLINE", "[", "\x01\t\r\n",
      "\u202E\u200D\u0301", Long("A"), Long("e\u0301 ")}},
    {ValueKind::Set, {"Page,Listing", "", "Listing", "Listing,Listing", Long("A")}},
    {ValueKind::TextSymbol,
     {"DejaVu Sans,0.5", "DejaVu Sans,400", "DejaVu Sans,1000", "DejaVu Sans,1001",
      "DejaVu Sans,1e-9", "DejaVu Sans,-1", "DejaVu Sans,nan", "DejaVu Sans", ",8", "",
      Long("A") + ",8"}},
    {ValueKind::FillSymbol, {"#000000", "#FFFFFF", "#FFF", "#GGGGGG", ""}},
};

template <class Keys>
void TryAll(const Keys& keys, const std::string& prefix) {
    Trial trial;
    for (const auto& key : keys)
        for (const auto& value : kEdges.at(key.kind))
            trial.SetAndDraw(prefix + key.name + '=' + value);
}

TEST(Values, OfTheGazetteerAtTheirEdges) {
    TryAll(gazetteer::PropertyKeys(), "");
}

TEST(Values, OfColumnsAtTheirEdges) {
    TryAll(gazetteer::ColumnKeys(), "Listing.");
}

// Rooms and sizes that only show where all columns have them.
TEST(Values, OfAllColumnsAtTheirEdges) {
    Trial trial;
    for (const char* assignment :
         {"*.Expression=", "*.Expression=\x01", "*.ShowTitle=false", "*.ColumnWidth=0",
          "*.ColumnWidth=1e300", "*.MarginTop=20", "*.MarginBottom=-20", "*.MarginLeft=5",
          "*.Alignment=Justify", "*.BreakColumn=true", "*.BreakSpacing=20",
          "*.ColumnFontSymbol=DejaVu Sans,400", "*.ColumnFontSymbol=DejaVu Sans,0.5"})
        trial.SetAndDraw(assignment);
    for (const char* piece : {"lorem ", "\u4EAC", "\u0628"})
        trial.SetAndDraw("Listing.Expression=" + Long(piece) + "$$DOTS");
}

// Each of 50 columns takes its share of the frame.
TEST(Sizes, OfColumns) {
    Trial trial;
    const auto& program = trial.program;
    program.Done({"set", "names.json", "*.MarginLeft=0", "*.MarginRight=0", "*.ColumnWidth=0.15",
                  "*.Title=", "*.ColumnFontSymbol=DejaVu Sans,2", "*.BreakHeading=false",
                  "Typesetting.HangingIndent=0"});
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
    enum Status { kDone, kCouldNot, kWrongUsage };
    const std::tuple<const char*, const char*, Status> cases[] = {
        {"200x200", "0,0,200,200", kDone},    {"200x200", "100,100,0.1,0.1", kCouldNot},
        {"8.5x11", "1,1,2.5,0.1", kCouldNot}, {"8.5x11", "1,1,2.5,0.5", kDone},
        {"8.5x11", "1,1,0.1,9", kCouldNot},   {"0.1x0.1", "", kCouldNot},
        {"200.1x10", "", kWrongUsage},        {"0x10", "", kWrongUsage},
        {"-1x10", "", kWrongUsage},           {"nanx10", "", kWrongUsage},
        {"8.5x11", "0,0,0,5", kWrongUsage},   {"8.5x11", "inf,0,1,5", kWrongUsage},
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
    trial.program.WriteLongTable("long.dbf", 5000);
    for (const char* sheet : {"4x2", "36x4", "37.5x4", "60x2", "200x2"}) {
        SCOPED_TRACE(sheet);
        const auto made = trial.MakeAndDraw({"long.dbf", "--page-size", sheet});
        EXPECT_FALSE(Contains(made.errors, "beyond the right edge"));
    }
    const auto wide = trial.MakeAndDraw({"long.dbf", "--set", "Listing.ColumnWidth=0.7", "--set",
                                         "Page.ColumnWidth=0.4", "--set", "RepeatSpacing=1"});
    EXPECT_TRUE(Contains(wide.errors, "beyond the right edge"));
}

TEST(Sizes, OfType) {
    Trial trial;
    const std::string font = "FontSymbol=DejaVu Sans,1000";
    const auto made =
        trial.MakeAndDraw({"names.dbf", "--page-size", "200x200", "--set", "*.Column" + font,
                           "--set", "*.Break" + font, "--set", "*.Title" + font, "--set",
                           "Listing.ColumnWidth=150", "--set", "Page.ColumnWidth=50"});
    EXPECT_EQ(made.status, 0) << made.errors;
    // A document may ask for any size.
    const auto& program = trial.program;
    const std::string document = program.Read("names.json");
    for (const std::string size : {"0.0", "1e-300", "-5.0", "20000.0", "1e300"}) {
        SCOPED_TRACE(size);
        program.Write("names.json",
                      gazetteer::ReplaceAll(document, "\"size\":9.0", "\"size\":" + size));
        trial.SetAndDraw("SortColumns=false");
    }
}

}  // namespace
}  // namespace tests
