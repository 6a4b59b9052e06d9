#include <gtest/gtest.h>
#include <map>

#include "limits/Trial.h"
#include "model/Keys.h"

namespace tests {
namespace {

using gazetteer::ValueKind;

const std::string kLong(100'000, 'A');

std::string LongMarks() {
    std::string text;
    while (text.size() < kLong.size()) text += "e\u0301 ";
    return text;
}

using Values = std::vector<std::string>;

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
     {"", " ", "left", "$$DOTS$$DOTS", "$$NEWLINE", "[", "\x01\t\r\n", "\u202E\u200D\u0301", kLong,
      LongMarks()}},
    {ValueKind::Set, {"Page,Listing", "", "Listing", "Listing,Listing", kLong}},
    {ValueKind::TextSymbol,
     {"DejaVu Sans,0.5", "DejaVu Sans,400", "DejaVu Sans,1000", "DejaVu Sans,1001",
      "DejaVu Sans,1e-9", "DejaVu Sans,-1", "DejaVu Sans,nan", "DejaVu Sans", ",8", "",
      kLong + ",8"}},
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
}

}  // namespace
}  // namespace tests
