#include <gtest/gtest.h>

#include "listings/ReferenceGroups.h"
#include "model/Results.h"
#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr char kSquares[] = "11 D-3|11 D-4|12 G-5";
constexpr char kWith[] = "$$PAGE_NUMBER [Ref]";

struct Case {
    const char* expression;
    const char* separator;
    const char* references;
    const char* text;
};

const Case kCases[] = {
    {kWith, ", ", kSquares, "11 D-3, D-4; 12 G-5"},
    {" [page] [Ref]", ", ", kSquares, "11 D-3, D-4; 12 G-5"},
    {"[Page]\u00A0[Ref]", ", ", "1\u00A0A|1\u00A0B|2\u00A0A", "1\u00A0A, B; 2\u00A0A"},
    {kWith, " / ", kSquares, "11 D-3 / D-4; 12 G-5"},
    {kWith, "; ", kSquares, "11 D-3, D-4; 12 G-5"},
    {kWith, "$$NEWLINE", kSquares, "11 D-3, D-4$$NEWLINE12 G-5"},
    {kWith, ", ", "11 A|12 B|11 C", "11 A; 12 B; 11 C"},
    // Where the page ends, or a square, is not clear.
    {kWith, ", ", "11 A 1|11 B 2|12 C", "11 A 1, 11 B 2, 12 C"},
    {kWith, ", ", "11 A,|11 C, D", "11 A,, 11 C, D"},
    {"[Page]-[Ref]", ", ", "11-A, B|11-C", "11-A, B, 11-C"},
    {"[Page]-[Ref]", " ", "11-A; B|11-C", "11-A; B 11-C"},
    // Blanks of the expression, and of the name of a field.
    {"[Page] [Row] [Column]", ", ", "1 A B|1 A C|2 A B", "1 A B, A C; 2 A B"},
    {"[Page] [Grid Square]", ", ", "1 A|1 B|2 A", "1 A, B; 2 A"},
    // Pages without squares.
    {kWith, ", ", "4 |5 |6 |6 A|6 B|7 |8 ", "4-6; 6 A, B; 7; 8"},
    {"[Page]", ", ", "4|5|6|8|9|11|A", "4-6, 8, 9, 11, A"},
    {"[Page]", "$$NEWLINE", "4|5|6|8", "4-6$$NEWLINE8"},
    // Nothing that begins with a page and a separator.
    {"p. [Page] [Ref]", ", ", "p. 1 A", "none"},
    {"[Page][Ref]", ", ", "1A", "none"},
    {"[Page].", ", ", "1.", "none"},
};

TEST(ReferenceGroups, HavePagesOnceWhereTheyAreClear) {
    support::SmallHost small;
    const auto element = small.NewGazetteer(small.ListingTable({{"A", "1"}}), 4, 4);
    Settings settings;
    ReadSettings(small.Host(), *small.Properties(element), settings);
    settings.typesetting.groupReferences = true;
    settings.combineFirstAndLast = false;
    const auto column = SetUnder(*settings.columnsProperties, "Page");
    for (const auto& [expression, separator, references, text] : kCases) {
        column->SetItem("Expression", std::string(expression));
        const auto groups = ReferenceGroups::For(settings);
        EXPECT_EQ(groups ? groups->Text(Split(references, '|'), separator) : "none", text)
            << expression << separator << references;
    }
    column->SetItem("Expression", std::string("[Page]"));
    settings.combineFirstAndLast = true;
    EXPECT_FALSE(ReferenceGroups::For(settings)) << "first and last are no group";
}

}  // namespace
}  // namespace gazetteer
