// Texts fitted in symbols of other hosts than the desk: what they may do within their promises must
// not change a text, and what they do beyond must do no harm.
#include <gtest/gtest.h>

#include "RandomTexts.h"
#include "ReferenceSplitText.h"
#include "layout/LineBreaker.h"
#include "layout/TextFit.h"
#include "support/FailureOf.h"
#include "support/PassingSymbol.h"
#include "support/TestDesk.h"

namespace gazetteer {
namespace {

using Device = host::DeviceContext;
using Transformation = host::Ref<host::IHostDisplayTransformation>;
using support::PassingSymbol;
using Symbol = host::Ref<host::IHostTextSymbol>;

// Sets dots of other widths than any few of them tell: the first two are thin, and later every
// other one adds nothing.
class UnevenDots : public PassingSymbol {
public:
    using PassingSymbol::PassingSymbol;
    host::TextExtent MeasureText(Device /*device*/, const Transformation& /*transformation*/,
                                 const std::string& text) override {
        double widest = 0;
        double width = 0;
        int dots = 0;
        for (const char byte : text) {
            dots = byte == '.' ? dots + 1 : 0;
            if (byte == '\n') width = 0;
            if (byte != '\r' && byte != '\n') width += dots == 0 ? 5 : dots < 3 ? 1 : dots % 2 * 6;
            widest = std::max(widest, width);
        }
        return {widest, 12};
    }
};

// A dot adds nothing to the letter that it stands under.
class DotUnderP : public PassingSymbol {
public:
    using PassingSymbol::PassingSymbol;
    host::TextExtent MeasureText(Device /*device*/, const Transformation& /*transformation*/,
                                 const std::string& text) override {
        const auto kerned = text.find("P.") == std::string::npos ? 0.0 : 3.0;
        return {3.0 * static_cast<double>(text.size()) - kerned, 12};
    }
};

// Sets what stands between <b> and </b> in wide letters.
class WithMarkup : public PassingSymbol {
public:
    using PassingSymbol::PassingSymbol;
    host::TextExtent MeasureText(Device /*device*/, const Transformation& /*transformation*/,
                                 const std::string& text) override {
        double widest = 0;
        double width = 0;
        double letter = 5;
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (text.compare(at, 3, "<b>") == 0) {
                letter = 9;
                at += 2;
            } else if (text.compare(at, 4, "</b>") == 0) {
                letter = 5;
                at += 3;
            } else if (text[at] == '\n') {
                width = 0;
            } else if (text[at] != '\r') {
                width += letter;
            }
            widest = std::max(widest, width);
        }
        return {widest, 12};
    }
};

class OtherHosts : public ::testing::Test {
protected:
    template <class Call>
    std::string Outcome(const Call& call) {
        std::string result;
        const auto failure = support::FailureOf([&] { result = call(); });
        return failure.number != 0 ? "failed: " + failure.cause : result;
    }
    std::string Plain(std::string text, double width, const Symbol& symbol) {
        return Outcome([&] {
            return reference::SplitText(desk_.Host(), desk_.Display(), text, width, symbol);
        });
    }
    support::TestDesk desk_;
    TextFit fit_{desk_.Host(), desk_.Display()};
};

TEST_F(OtherHosts, FitTextsAsThePlainLoopsDo) {
    const Symbol symbol = std::make_shared<UnevenDots>(desk_.TextSymbol("Liberation Sans", 9));
    RandomTexts source(20261125);
    for (int i = 0; i < 2000; ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        std::string fitted = text;
        EXPECT_EQ(Outcome([&] { return fit_.SplitText(fitted, width, symbol); }),
                  Plain(text, width, symbol))
            << "width " << width << ": " << text;
    }
}

TEST_F(OtherHosts, ATextAsWideAsItsColumnTakesNoDotWithoutWidth) {
    const Symbol symbol = std::make_shared<DotUnderP>(desk_.TextSymbol("Liberation Sans", 9));
    for (const auto& [points, fitted] : {std::pair{9.0, "abP"}, {10.0, "abP."}, {12.0, "abP.."}}) {
        std::string text = "abP$$DOTS";
        EXPECT_EQ(fit_.SplitText(text, points / 72, symbol), fitted) << points;
        EXPECT_EQ(Plain("abP$$DOTS", points / 72, symbol), fitted) << points;
    }
}

// A line of such a text is not as wide alone as behind the tags of earlier ones.
TEST_F(OtherHosts, TextsWithMarkupAreMeasuredWhole) {
    const Symbol symbol = std::make_shared<WithMarkup>(desk_.TextSymbol("Liberation Sans", 9));
    TextMeasure measure(desk_.Display(), symbol);
    for (const char* text : {"Main <b>Street and</b> Oak Street", "<b>Mainstreetandoakstreet</b>",
                             "ab </b>cdefgh <b>ij kl</b> mnopqrs", "a\r\nb <b>cd\r\nefgh i"})
        for (double points = 9; points < 120; points += 1.5) {
            const double width = points / 72;
            const double whole = measure.Width(text);
            if (whole <= width) continue;
            EXPECT_EQ(Outcome([&] {
                          return LineBreaker(desk_.Host().Locale(), measure, width, true)
                              .Wrap(text, whole);
                      }),
                      Plain(text, width, symbol))
                << text << " in " << points;
        }
}

}  // namespace
}  // namespace gazetteer
