#include <gtest/gtest.h>

#include "app/document/References.h"

namespace tests {
namespace {

/// The references that are found in a text, each with its page and its square behind it.
std::string Found(const app::References& references, const std::string& text) {
    std::string told;
    for (const auto& [first, end, page, square] : references.Find(text))
        told += '<' + text.substr(first, end - first) + ">" + std::string(page) +
                (square.empty() ? "" : "/" + square) + ' ';
    return told;
}

TEST(References, AreFoundInTheTextsOfCells) {
    const struct {
        const char *expression, *delimiter;
        bool grouped;
        const char *text, *found;
    } cases[] = {
        {"$$PAGE_NUMBER $$ROW-$$COLUMN", ", ", false, "4 B-3, 12 C-1",
         "<4 B-3>4/B-3 <12 C-1>12/C-1 "},
        {"[Listing]$$DOTS$$PAGE_NUMBER [Square]", "; ", false, "4 B;\r\n12 C",
         "<4 B>4/B <12 C>12/C "},
        // A line may end between page and square, or behind a separator.
        {"[Page] [Square]", ", ", false, "4\nB, 12 C,\n13 D", "<4\nB>4/B <12 C>12/C <13 D>13/D "},
        {"[Page], [Square]", ", ", false, "4, B, 12, C", "<4, B>4/B <12, C>12/C "},
        {"[Page]", ", ", false, "A-3, iv", "<A-3>A-3 <iv>iv "},
        {"[Page] [Square]", ", ", true, "4 B, C; 12 D", "<4 B>4/B <C>4/C <12 D>12/D "},
        {"[Page] [Square]", "; ", true, "4 B, C; 12 D", "<4 B>4/B <C>4/C <12 D>12/D "},
        {"[Page], [Square]", ", ", true, "4, B, C; 12, D", "<4, B>4/B <C>4/C <12, D>12/D "},
        {"[Page]", ", ", true, "4-6, 9, A-3", "<4>4 <6>6 <9>9 <A-3>A-3 "},
        {"[Page] [Square]", "\n", false, "4 B\n12 C", "<4 B>4/B <12 C>12/C "},
        {"[Page]", ", ", false, " ", ""},
    };
    for (const auto& [expression, delimiter, grouped, text, found] : cases) {
        gazetteer::Settings settings;
        settings.combineListings = true;
        settings.combineDelimeter = delimiter;
        settings.combineWithNewLine = *delimiter == '\n';
        settings.typesetting.groupReferences = grouped;
        const auto references = app::References::Of(settings, expression);
        ASSERT_TRUE(references.has_value()) << expression;
        EXPECT_EQ(Found(*references, text), found) << expression << ' ' << text;
    }
    EXPECT_FALSE(app::References::Of({}, "[Listing] $$PAGE_NUMBER").has_value());
    EXPECT_EQ(app::References::DrawnText("Main$$DOTS4 B$$LASTCOMBINE$$NEWLINE5 C"), "4 B\n5 C");
}

}  // namespace
}  // namespace tests
