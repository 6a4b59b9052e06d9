#include <gtest/gtest.h>
#include <tuple>

#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "support/TestDesk.h"

namespace tests {
namespace {

using app::ParseValue;
using gazetteer::ValueKind;

TEST(Assignments, CutAtTheFirstEqualsAndTheLastDotBeforeIt) {
    const std::pair<const char*, const char*> cases[] = {
        {"SortColumns=false", "|SortColumns|false"},
        {"Listing.Title= a=b.c ", "Listing|Title| a=b.c "},
        {"St.Name.Title=x", "St.Name|Title|x"},
        {"CombineDelimeter=", "|CombineDelimeter|"},
    };
    for (const auto& [text, parts] : cases) {
        const auto parsed = app::ParseAssignment(text);
        EXPECT_EQ(parsed.column + '|' + parsed.key + '|' + parsed.value, parts);
    }
    for (const char* wrong : {"", "Title", ".Title=x"})
        EXPECT_THROW(app::ParseAssignment(wrong), app::UsageError) << wrong;
}

TEST(Values, ReadAsTheTypeOfTheirKeyAndWrittenBackTheSame) {
    support::TestDesk desk;
    using Texts = std::vector<const char*>;
    const std::tuple<ValueKind, Texts, Texts> kinds[] = {
        {ValueKind::Boolean, {"true", "false"}, {"True", "1", ""}},
        {ValueKind::Long, {"-12"}, {"1.0", "3000000000", " 1"}},
        {ValueKind::Double, {"0.1", "-2"}, {"1,5", "nan", "1 ", "1e400", "-1001"}},
        {ValueKind::String, {" two  blanks, a comma "}, {}},
        {ValueKind::TextSymbol,
         {"DejaVu Sans Mono,10,bold,#B00010", "Liberation Sans,8.5", "Liberation Sans,8,#00FF01",
          "Liberation Sans,8,italic", "Liberation Sans,8,bold,italic,#00FF01"},
         {"Liberation Sans", "Liberation Sans,0", "Liberation Sans,1001", ",8",
          "Liberation Sans,8,italic,bold", "Liberation Sans,8,#B00010,bold",
          "Liberation Sans,8,bold,#B0001"}},
        {ValueKind::FillSymbol, {"#0A0B0C"}, {"B00010", "#B0001G", "#B000100"}}};
    for (const auto& [kind, texts, refused] : kinds) {
        for (const char* text : texts)
            EXPECT_EQ(app::ValueText(ParseValue(desk.Host(), "Key", kind, text)), text);
        for (const char* text : refused)
            EXPECT_THROW(ParseValue(desk.Host(), "Key", kind, text), app::UsageError) << text;
    }
    // Red is the first pair of a colour.
    const auto red = ParseValue(desk.Host(), "Key", ValueKind::FillSymbol, "#B01020");
    const auto fill = host::As<host::IHostFillSymbol>(std::get<host::Ref<host::IHostObject>>(red));
    EXPECT_EQ(fill->Color()->RGB(), 0x2010B0U);
}

}  // namespace
}  // namespace tests
