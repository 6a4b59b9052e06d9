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

// Tells the steps of any text, of several lines too, by the measurements of its beginnings.
class ByBeginnings : public PassingSymbol, public host::IHostTextSteps {
public:
    using PassingSymbol::PassingSymbol;
    bool MeasureSteps(Device device, const Transformation& transformation, const std::string& line,
                      host::TextSteps& steps) override {
        steps.steps.clear();
        double before = 0;
        for (std::size_t end = 0; end < line.size();) {
            for (++end; end < line.size() && (line[end] & 0xC0) == 0x80;) ++end;
            const double width = MeasureText(device, transformation, line.substr(0, end)).xSize;
            steps.steps.push_back({width - before, false});
            before = width;
        }
        steps.height = MeasureText(device, transformation, "x").ySize;
        return true;
    }
};

// Forgets one step, as a host that counts other characters would.
class OneStepShort : public ByBeginnings {
public:
    using ByBeginnings::ByBeginnings;
    bool MeasureSteps(Device device, const Transformation& transformation, const std::string& line,
                      host::TextSteps& steps) override {
        ByBeginnings::MeasureSteps(device, transformation, line, steps);
        if (!steps.steps.empty()) steps.steps.pop_back();
        return true;
    }
};

// A dot adds nothing to the letter that it stands under.
class DotUnderP : public ByBeginnings {
public:
    using ByBeginnings::ByBeginnings;
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
    const Symbol real = desk_.TextSymbol("Liberation Sans", 9);
    const std::pair<const char*, Symbol> symbols[] = {
        {"without steps", std::make_shared<PassingSymbol>(real)},
        {"steps of any text", std::make_shared<ByBeginnings>(real)},
        {"one step short", std::make_shared<OneStepShort>(real)},
    };
    RandomTexts source(20261125);
    for (int i = 0; i < 500; ++i) {
        const std::string text = source.Text();
        const double width = source.Width();
        const std::string plain = Plain(text, width, real);
        for (const auto& [kind, symbol] : symbols) {
            std::string fitted = text;
            EXPECT_EQ(Outcome([&] { return fit_.SplitText(fitted, width, symbol); }), plain)
                << kind << ", width " << width << ": " << text;
            auto element = desk_.Host().NewTextElement();
            element->SetSymbol(symbol);
            element->SetText(plain);
            const auto size = real->MeasureText({}, nullptr, plain);
            EXPECT_EQ(fit_.GetTextSize(*element).height, size.ySize / 72) << kind << ": " << plain;
        }
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
