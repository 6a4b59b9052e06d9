// Texts fitted in symbols that set them as hosts may: within their promises, and a little beyond.
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

#include "BothFits.h"
#include "RandomTexts.h"
#include "layout/LineBreaker.h"
#include "support/SmallHost.h"

namespace gazetteer {
namespace {

/// Sets texts as wide, in points, as a function says.
class OwnWidths : public texthost::TextSymbol {
public:
    explicit OwnWidths(double (*width)(const std::string&)) : width_(width) {}
    host::TextExtent MeasureText(host::DeviceContext,
                                 const host::Ref<host::IHostDisplayTransformation>&,
                                 const std::string& text) override {
        return {width_(text), 12};
    }

private:
    double (*width_)(const std::string&);
};

template <class OfLine>
double Widest(const std::string& text, const OfLine& ofLine) {
    double widest = 0;
    for (const auto& line : Split(ReplaceAll(text, "\r", ""), '\n'))
        widest = std::max(widest, ofLine(line));
    return widest;
}

// Letters of many widths of which some pairs stand closer, and narrow dots.
double Kerned(const std::string& text) {
    return Widest(text, [](const std::string& line) {
        double width = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string pair = i == 0 ? "" : line.substr(i - 1, 2);
            width += line[i] == '.' ? 2.5 : 3 + (line[i] & 7);
            if (pair == "AV" || pair == "To" || pair == "fi" || pair == "Y.") width -= 2;
        }
        return width;
    });
}

// Dots of other widths than any few of them tell: the first two are thin, and later every other one
// adds nothing.
double UnevenDots(const std::string& text) {
    return Widest(text, [](const std::string& line) {
        double width = 0;
        int dots = 0;
        for (const char letter : line) {
            dots = letter == '.' ? dots + 1 : 0;
            width += dots == 0 ? 5 : dots < 3 ? 1 : dots % 2 * 6;
        }
        return width;
    });
}

// A dot adds nothing to the letter that it stands under.
double DotUnderP(const std::string& text) {
    return 3.0 * static_cast<double>(text.size() - (text.find("P.") != std::string::npos ? 1 : 0));
}

// What stands between <b> and </b> is wide, also on the next line.
double WithMarkup(const std::string& text) {
    double letter = 5;
    return Widest(ReplaceAll(ReplaceAll(text, "</b>", "\x02"), "<b>", "\x01"),
                  [&](const std::string& line) {
                      double width = 0;
                      for (const char c : line) {
                          if (c < '\x03')
                              letter = c == '\x01' ? 9 : 5;
                          else
                              width += letter;
                      }
                      return width;
                  });
}

class Fitting : public ::testing::Test, protected support::SmallHost {
protected:
    using Symbol = BothFits::Symbol;

    static Symbol Widths(double (*width)(const std::string&)) {
        return std::make_shared<OwnWidths>(width);
    }
    std::string Fit(const std::string& text, double width, const Symbol& symbol) {
        return fits_.Fit(text, width, symbol);
    }
    BothFits fits_{*this};
};

TEST_F(Fitting, EqualsThePlainLoopsOnRandomTexts) {
    constexpr int kTexts = 2'000;
    const auto even = TextSymbol("", 9);
    RandomTexts source(20260101);
    int wrapped = 0;
    for (int i = 0; i < kTexts && !HasFailure(); ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        for (const auto& symbol : {even, Widths(Kerned), Widths(UnevenDots)})
            wrapped += Fit(text, width, symbol).find('\n') != std::string::npos;
    }
    EXPECT_GT(wrapped, kTexts);
}

TEST_F(Fitting, DotsEndAtTheEdge) {
    // Where the dotted line just overtakes another one, that step tells no dot's width.
    for (int letters = 1; letters < 40; ++letters)
        Fit(std::string(static_cast<std::size_t>(letters), 'm') + "$$NEWLINE.$$DOTS", 6,
            Widths(Kerned));
    // A text as wide as its column takes no dot without width.
    for (const auto& [points, fitted] : {std::pair{9.0, "abP"}, {10.0, "abP."}, {12.0, "abP.."}})
        EXPECT_EQ(Fit("abP$$DOTS", points / 72, Widths(DotUnderP)), fitted) << points;
}

TEST_F(Fitting, TextsAndTokens) {
    const auto symbol = TextSymbol("", 10);
    TextMeasure measure(Display(), symbol);
    // With the width of the column in letters.
    const std::tuple<const char*, const char*, std::size_t, const char*> cases[] = {
        {"nothing", "", 9, ""},
        {"a bare line feed of the user's own stays", "Ash\n", 9, "Ash\n"},
        {"exactly as wide takes no dots", "Main St$$DOTS", 7, "Main St"},
        {"a leader", "A$$DOTS", 9, "A........"},
        {"a leader before a reference", "A$$DOTS4, B-3", 9, "A..4, B-3"},
        {"a leader on the last line", "a$$NEWLINEb$$DOTS", 4, "a\r\nb..."},
        {"a hard line end", "a$$NEWLINEb", 9, "a\r\nb"},
        {"a blank that overflows at the end leaves no line end", "Main St  ", 7, "Main St"},
        {"leading blanks of a text that wraps are skipped", "   Main Street", 5,
         "Main\r\nStre-\r\net"},
        {"dots in the middle of a text that wraps are dropped", "Main$$DOTS St", 4, "Main\r\nSt"},
        {"marks go with their letters", "ae\u0301be\u0301", 5, "ae\u0301-\r\nbe\u0301"},
        {"the first character must have room", "Wide", 0,
         "failed: Column width is set too narrow for selected Font!"},
    };
    for (const auto& [what, text, letters, result] : cases)
        EXPECT_EQ(Fit(text, measure.Width(std::string(letters, 'x')), symbol), result) << what;
}

// A line of such a text is not as wide alone as behind the tags of earlier ones.
TEST_F(Fitting, TextsWithMarkupAreMeasuredWhole) {
    const auto symbol = Widths(WithMarkup);
    TextMeasure measure(Display(), symbol);
    for (const char* text : {"Main <b>Street and</b> Oak Street", "<b>Mainstreetandoakstreet</b>",
                             "ab </b>cdefgh <b>ij kl</b> mnopqrs", "a\r\nb <b>cd\r\nefgh i"})
        for (double points = 9; points < 120; points += 1.5) {
            const double width = points / 72;
            const double whole = measure.Width(text);
            if (whole <= width) continue;
            std::string wrapped;
            const auto failure = support::FailureOf([&] {
                wrapped = LineBreaker(Host().Locale(), measure, width, true).Wrap(text, whole);
            });
            if (failure.number != 0) wrapped = "failed: " + failure.cause;
            EXPECT_EQ(wrapped, fits_.Plain(text, width, symbol).first) << text << " in " << points;
        }
}

}  // namespace
}  // namespace gazetteer
