#include <gtest/gtest.h>

#include "layout/ParagraphBreaker.h"
#include "support/TestDesk.h"
#include "typesetting/DrawnPage.h"

namespace typesetting {
namespace {

using support::TestDesk;

/// Widths are in letters of a font in which all are 0.6 of the size wide: 10 points, 12 to an inch.
struct Case {
    const char* locale;
    const char* text;
    int first, others;  ///< Width of the first line and of the others.
    std::vector<std::string> lines;
    bool torn = false;
};

const Case kCases[] = {
    {"en", "Main St", 10, 10, {"Main St"}},
    {"en", "Main  Street ", 7, 7, {"Main", "Street"}},
    {"en", "Saint-Georges-sur-Loire", 15, 15, {"Saint-Georges-", "sur-Loire"}},
    {"en", "Neustadt/Waldnaab", 10, 9, {"Neustadt/", "Waldnaab"}},
    {"en", "Pier 4-B\u00A0(N)", 6, 9, {"Pier", "4-B\u00A0(N)"}},
    {"en", "Ab\u00ADstract", 5, 9, {"Ab-", "stract"}},
    {"en", "xxxxxxxxxx yy", 4, 4, {"xxx-", "xxx-", "xxxx", "yy"}, true},
    {"en", "x", 1, 1, {"x"}},
    {"en", "xyz", 1, 1, {"x", "y", "z"}, true},
    {"en", "", 5, 5, {""}},
    // Grid squares and single letters stay with what a hyphen joins them to.
    {"en", "5\u00A05-D, 6\u00A06-E", 11, 11, {"5\u00A05-D,", "6\u00A06-E"}},
    {"en", "5 D-D, 6 D/E", 10, 10, {"5 D-D, 6", "D/E"}},
    {"en", "Neue U-Bahn 24–26", 7, 7, {"Neue", "U-Bahn", "24–26"}},
    {"en", "Plan 13-L", 4, 4, {"Plan", "13-L"}},
    {"en", "Plan 13-LM", 4, 4, {"Plan", "13-", "LM"}},
    // The rest of a word has the divisions of the whole.
    {"de", "Industriestraße", 6, 6, {"Indus-", "trie-", "straße"}},
    // In no room beside an indent.
    {"en", "xyz", 1, 0, {"x", "y", "z"}, true},
    {"en", "   ", 1, 1, {""}},
};

TEST(Paragraphs, BreakWhereUnicodeAllowsIt) {
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.text);
        const auto own = DeskOf(each.locale);
        TestDesk& desk = *own;
        const auto symbol = desk.TextSymbol("Liberation Mono", 10);
        gazetteer::TextMeasure measure(desk.Display(), symbol);
        auto& locale = desk.Host().Locale();
        gazetteer::ParagraphBreaker breaker(locale, dynamic_cast<host::IHostLineBreaks*>(&locale),
                                            measure);
        const double letter = measure.Width("x") * 1.01;
        EXPECT_EQ(breaker.Lines(each.text, each.first * letter, each.others * letter), each.lines);
        EXPECT_EQ(breaker.ToreWord(), each.torn);
    }
}

// Without rules of the host, at blanks.
TEST(Paragraphs, BreakAtBlanksOnAHostWithoutRules) {
    TestDesk desk;
    gazetteer::TextMeasure measure(desk.Display(), desk.TextSymbol("Liberation Mono", 10));
    gazetteer::ParagraphBreaker breaker(desk.Host().Locale(), nullptr, measure);
    const double letter = measure.Width("x") * 1.01;
    EXPECT_EQ(breaker.Lines("a-b  c-d e", 5 * letter, 5 * letter),
              (std::vector<std::string>{"a-b", "c-d e"}));
}

}  // namespace
}  // namespace typesetting
