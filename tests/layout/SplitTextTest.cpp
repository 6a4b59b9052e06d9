#include <gtest/gtest.h>
#include <random>

#include "ReferenceSplitText.h"
#include "layout/TextFit.h"
#include "support/ErrorHandling.h"
#include "support/TestDesk.h"

namespace gazetteer {
namespace {

constexpr const char* kFonts[] = {"Liberation Sans", "DejaVu Serif", "Noto Sans"};

// Random texts of the kinds that an index holds, and of kinds that it should not.
class TextSource {
public:
    explicit TextSource(unsigned seed) : random_(seed) {}

    std::string Text() {
        static const std::vector<std::string> words = {"Main",
                                                       "St",
                                                       "Avenue",
                                                       "W",
                                                       "iiii",
                                                       "Zwölf",
                                                       "Øst",
                                                       "AV",
                                                       "fi",
                                                       "ffl",
                                                       "Kápolna",
                                                       "Αθήνα",
                                                       "Київ",
                                                       "東京都",
                                                       "a-b",
                                                       "12,",
                                                       "..",
                                                       "Wawaw",
                                                       "To",
                                                       "Llanfairpwllgwyngyll",
                                                       "e\u0301te\u0301",
                                                       "ﬁn",
                                                       "القاهرة",
                                                       "ירושלים",
                                                       "กรุงเทพ",
                                                       "दिल्ली",
                                                       "Ｗ",
                                                       "\u00a0x",
                                                       "(N)",
                                                       "Y."};
        std::string text;
        const int count = Number(0, 8);
        for (int i = 0; i < count; ++i) {
            if (Number(0, 9) < 7) text += std::string(static_cast<std::size_t>(Number(0, 2)), ' ');
            text += words[static_cast<std::size_t>(Number(0, static_cast<int>(words.size()) - 1))];
            if (Number(0, 19) == 0) text += "$$NEWLINE";
            if (Number(0, 59) == 0) text += Number(0, 1) == 0 ? "\n" : "\r";
            if (Number(0, 14) == 0) text += "$$DOTS";
        }
        if (Number(0, 3) == 0) text += ' ';
        if (Number(0, 2) == 0) text += "$$DOTS";
        return text;
    }
    double Width() { return Number(0, 3) == 0 ? Number(2, 60) / 100.0 : Number(30, 400) / 100.0; }
    int Number(int from, int to) { return std::uniform_int_distribution(from, to)(random_); }

private:
    std::mt19937 random_;
};

// What a fit came to, failure included.
template <class Fit>
std::pair<std::string, std::string> Outcome(std::string text, Fit fit) {
    try {
        std::string result = fit(text);
        return {result, text};
    } catch (const host::Failure& failure) {
        return {"failed: " + failure.cause, {}};
    }
}

class SplitText : public ::testing::Test {
protected:
    std::string Fit(const std::string& text, double width, double points = 10) {
        const auto symbol = desk_.TextSymbol("Liberation Sans", points);
        std::string copy = text;
        return fit_.SplitText(copy, width, symbol);
    }
    double WidthOf(const std::string& text) {
        return TextMeasure(desk_.Display(), desk_.TextSymbol("Liberation Sans", 10)).Width(text);
    }
    support::TestDesk desk_;
    TextFit fit_{desk_.Host(), desk_.Display()};
};

TEST_F(SplitText, EqualsThePlainLoopsOnRandomTexts) {
    constexpr int kTexts = 20'000;
    TextSource source(20260101);
    int wrapped = 0;
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        for (const char* font : kFonts) {
            const auto symbol = desk_.TextSymbol(font, 6 + i % 7);
            const auto shipped =
                Outcome(text, [&](std::string& t) { return fit_.SplitText(t, width, symbol); });
            const auto plain = Outcome(text, [&](std::string& t) {
                return reference::SplitText(desk_.Host(), desk_.Display(), t, width, symbol);
            });
            ASSERT_EQ(shipped, plain) << '"' << text << "\" in " << font << ", width " << width;
            wrapped += shipped.first.find('\n') != std::string::npos;
        }
    }
    EXPECT_GT(wrapped, kTexts);
}

TEST_F(SplitText, TextsAndTokens) {
    const double main = WidthOf("Main St");
    struct Case {
        const char* what;
        std::string text;
        double width;
        std::string result;
    };
    const Case cases[] = {
        {"nothing", "", 1, ""},
        {"a bare line feed of the user's own stays", "Ash\n", 1, "Ash\n"},
        {"exactly as wide takes no dots", "Main St$$DOTS", main, "Main St"},
        {"a hard line end", "a$$NEWLINEb", 1, "a\r\nb"},
        {"a blank that overflows at the end leaves no line end", "Main St  ", main, "Main St"},
        {"leading blanks of a text that wraps are skipped", "   Main Street", WidthOf("Main "),
         "Main\r\nStre-\r\net"},
        {"dots in the middle of a text that wraps are dropped", "Main$$DOTS St", WidthOf("Main"),
         "Main\r\nSt"},
    };
    for (const Case& c : cases) EXPECT_EQ(Fit(c.text, c.width), c.result) << c.what;
}

TEST_F(SplitText, LeadersEndWithinOneDotOfTheEdge) {
    const double dot = WidthOf("..") - WidthOf(".");
    for (const char* text : {"A$$DOTS", "Main St$$DOTS", "A$$DOTS4, B-3", "$$DOTSa$$DOTSb"}) {
        const std::string result = Fit(text, 2);
        const std::size_t places =
            std::string(text).find("$$DOTS", 1) != std::string::npos && text[0] == '$' ? 2 : 1;
        EXPECT_LE(WidthOf(result), 2) << text;
        EXPECT_GT(WidthOf(result) + static_cast<double>(places) * dot, 2) << text;
    }
}

// Where the dotted line just overtakes another one, the growth of that step tells no dot's width.
TEST_F(SplitText, DottedLineThatOvertakesTheWidestOne) {
    for (const char* text : {"rhxzco$$NEWLINEfxsfg$$DOTS", "biztgqlclh$$NEWLINEx$$DOTS",
                             "kntueo$$NEWLINEgrdql$$DOTS", "wide one$$NEWLINE.$$DOTS"}) {
        const auto symbol = desk_.TextSymbol("Noto Sans", 10);
        std::string shipped = text;
        std::string plain = text;
        EXPECT_EQ(fit_.SplitText(shipped, 6, symbol),
                  reference::SplitText(desk_.Host(), desk_.Display(), plain, 6, symbol))
            << text;
    }
}

TEST_F(SplitText, TooNarrowForTheFirstCharacter) {
    std::string text = "Wide";
    try {
        fit_.SplitText(text, 0.01, desk_.TextSymbol("Liberation Sans", 10));
        FAIL();
    } catch (const host::Failure& failure) {
        EXPECT_EQ(failure.number, kOwnError);
        EXPECT_EQ(failure.source, "CVNGazetteerManager.SplitText");
        EXPECT_EQ(failure.cause, "Column width is set too narrow for selected Font!");
    }
}

// The caller sees its tokens taken out.
TEST_F(SplitText, CallersTextLosesItsTokens) {
    std::string text = "a$$NEWLINEb$$DOTS";
    fit_.SplitText(text, 1, desk_.TextSymbol("Liberation Sans", 10));
    EXPECT_EQ(text, "a\r\nb");
}

}  // namespace
}  // namespace gazetteer
