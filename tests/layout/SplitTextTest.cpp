#include <gtest/gtest.h>

#include "RandomTexts.h"
#include "ReferenceSplitText.h"
#include "layout/TextFit.h"
#include "support/FailureOf.h"
#include "support/TestDesk.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

constexpr const char* kFonts[] = {"Liberation Sans", "DejaVu Serif", "Noto Sans"};

class SplitText : public ::testing::Test {
protected:
    using Symbol = host::Ref<host::IHostTextSymbol>;

    // What a fit came to, and what is left of the text; or the failure.
    template <class Call>
    std::pair<std::string, std::string> Outcome(std::string text, const Call& fit) {
        std::string result;
        const auto failure = support::FailureOf([&] { result = fit(text); });
        if (failure.number != 0) return {"failed: " + failure.cause, {}};
        return {result, text};
    }
    // The lines that a text is fitted to, which must be those of the plain loops.
    std::string Fit(const std::string& text, double width, const Symbol& symbol) {
        const auto shipped =
            Outcome(text, [&](std::string& t) { return fit_.SplitText(t, width, symbol); });
        const auto plain = Outcome(text, [&](std::string& t) {
            return reference::SplitText(desk_.Host(), desk_.Display(), t, width, symbol);
        });
        EXPECT_EQ(shipped, plain) << '"' << text << "\" in " << symbol->Font()->Name() << ", width "
                                  << width;
        return shipped.first;
    }
    support::TestDesk desk_;
    TextFit fit_{desk_.Host(), desk_.Display()};
};

TEST_F(SplitText, EqualsThePlainLoopsOnRandomTexts) {
    constexpr int kTexts = 20'000;
    RandomTexts source(20260101);
    int wrapped = 0;
    for (int i = 0; i < kTexts && !HasFailure(); ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        for (const char* font : kFonts)
            wrapped +=
                Fit(text, width, desk_.TextSymbol(font, 6 + i % 7)).find('\n') != std::string::npos;
    }
    EXPECT_GT(wrapped, kTexts);
}

// Where the dotted line just overtakes another one, the growth of that step tells no dot's width.
TEST_F(SplitText, DottedLineThatOvertakesTheWidestOne) {
    for (const char* text : {"rhxzco$$NEWLINEfxsfg$$DOTS", "biztgqlclh$$NEWLINEx$$DOTS",
                             "kntueo$$NEWLINEgrdql$$DOTS", "wide one$$NEWLINE.$$DOTS"})
        Fit(text, 6, desk_.TextSymbol("Noto Sans", 10));
}

TEST_F(SplitText, TextsAndTokens) {
    const Symbol symbol = desk_.TextSymbol("Liberation Sans", 10);
    TextMeasure measure(desk_.Display(), symbol);
    const double main = measure.Width("Main St");
    const std::tuple<const char*, std::string, double, std::string> cases[] = {
        {"nothing", "", 1, ""},
        {"a bare line feed of the user's own stays", "Ash\n", 1, "Ash\n"},
        {"exactly as wide takes no dots", "Main St$$DOTS", main, "Main St"},
        {"a hard line end", "a$$NEWLINEb", 1, "a\r\nb"},
        {"a blank that overflows at the end leaves no line end", "Main St  ", main, "Main St"},
        {"leading blanks of a text that wraps are skipped", "   Main Street",
         measure.Width("Main "), "Main\r\nStre-\r\net"},
        {"dots in the middle of a text that wraps are dropped", "Main$$DOTS St",
         measure.Width("Main"), "Main\r\nSt"},
        {"the first character must have room", "Wide", 0.01,
         "failed: Column width is set too narrow for selected Font!"},
    };
    for (const auto& [what, text, width, result] : cases)
        EXPECT_EQ(Fit(text, width, symbol), result) << what;
    // A leader ends within a dot of the edge.
    const double dot = measure.Width("..") - measure.Width(".");
    for (const char* text : {"A$$DOTS", "A$$DOTS4, B-3"})
        EXPECT_NEAR(measure.Width(Fit(text, 2, symbol)), 2 - dot / 2, dot / 2) << text;
}

}  // namespace
}  // namespace gazetteer
