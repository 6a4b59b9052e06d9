#include <gtest/gtest.h>

#include "limits/Trial.h"
#include "model/Keys.h"

namespace tests {
namespace {

using gazetteer::ValueKind;

constexpr std::size_t kLongText = 100'000;

std::string Repeated(const std::string& piece, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) text += piece;
    return text;
}

// The edges of each kind: least, largest, zero, negative, empty, very long, not finite, no value.
std::vector<std::string> Edges(ValueKind kind) {
    switch (kind) {
        case ValueKind::Boolean:
            return {"true", "false", "", "yes"};
        case ValueKind::Integer:
        case ValueKind::Long:
            return {"0", "-1", "2147483647", "-2147483648", "2147483648", "1.5", ""};
        case ValueKind::Double:
            return {"0",     "-0.01", "-1e300", "1e-300", "0.001", "5",   "200",
                    "1e300", "1e309", "inf",    "nan",    "1,5",   "0x1", ""};
        case ValueKind::String:
            return {"",
                    " ",
                    "left",
                    "$$DOTS$$DOTS",
                    "$$NEWLINE",
                    "[",
                    "\x01\t\r\n",
                    "\u202E\u200D\u0301",
                    Repeated("A", kLongText),
                    Repeated("e\u0301 ", kLongText)};
        case ValueKind::Set:
            return {"Page,Listing", "", "Listing", "Listing,Listing", Repeated("x", kLongText)};
        case ValueKind::TextSymbol:
            return {"DejaVu Sans,0.5",
                    "DejaVu Sans,400",
                    "DejaVu Sans,1000",
                    "DejaVu Sans,1001",
                    "DejaVu Sans,1e-9",
                    "DejaVu Sans,-1",
                    "DejaVu Sans,nan",
                    "DejaVu Sans",
                    ",8",
                    "",
                    Repeated("A", kLongText) + ",8"};
        case ValueKind::FillSymbol:
            return {"#000000", "#FFFFFF", "#FFF", "#GGGGGG", ""};
    }
    return {};
}

// Every key at the edges of its kind.
TEST(Values, OfTheGazetteerAtTheirEdges) {
    Trial trial;
    for (const auto& key : gazetteer::PropertyKeys())
        for (const auto& value : Edges(key.kind))
            trial.SetAndDraw(std::string(key.name) + '=' + value);
}

TEST(Values, OfColumnsAtTheirEdges) {
    Trial trial;
    for (const auto& key : gazetteer::ColumnKeys())
        for (const auto& value : Edges(key.kind))
            trial.SetAndDraw(std::string("Listing.") + key.name + '=' + value);
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
}

}  // namespace
}  // namespace tests
