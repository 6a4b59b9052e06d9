#include <gtest/gtest.h>
#include <random>

#include "listings/NumberAwareSort.h"
#include "listings/NumberTokens.h"
#include "support/ErrorHandling.h"
#include "support/FailureOf.h"
#include "support/SmallHost.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

class NumberAwareSort : public ::testing::Test, protected support::SmallHost {
protected:
    int Compare(const host::Variant& a, const host::Variant& b) {
        return callback_.Compare(a, b, 0, 0);
    }
    clsTableSortNumberAware callback_{Host()};
};

TEST_F(NumberAwareSort, PairsOfTexts) {
    const std::tuple<std::string, std::string, int> cases[] = {
        {"2", "10", -1},     {"1.5", "1.50", 0},
        {"1E5", "20000", 1}, {"007", "7", 0},
        {"007 b", "7 a", 1}, {"AVE 2", "AVE 10", -1},
        {"Main", "MAIN", 0}, {"2ND", "10TH", -1},
        {"A10", "A9", 1},    {"A1", "A1B", 1},
        {"10", "9A", 1},     {"2ND", "AVE", -1},
        {"10", "AVE", -1},   {"MAIN ST", "MAIN ST N", 1},  // The text with more tokens goes first.
        {"", "X", 1},        {"", "", 0},
        {"a  b", "a b", -1},  // An empty token sorts before any other.
        {" ", "", -1},       {"3-4", "3-12", -1},
    };
    for (const auto& [first, second, order] : cases) {
        EXPECT_EQ(Compare(first, second), order) << first << " / " << second;
        EXPECT_EQ(Compare(second, first), -order) << second << " / " << first;
    }
}

// Texts of few words, so that many are alike: numbers, letters and both in one, in several
// alphabets, with blanks in odd places. They form ties and circles.
std::string RandomText(std::mt19937& random) {
    static const auto pieces = Split(
        "a|A|b|ab|é|E|ж|Ж|中|e\u0301|9|10|9a|a9|a10|10B|007|7|1.5|1,000|٣|٢٢|٣a|-||\xFF|1E5|A12B9",
        '|');
    std::string text;
    for (std::size_t words = random() % 7; words > 0; --words) {
        text += pieces[random() % pieces.size()];
        if (random() % 5 != 0) text += ' ';
    }
    return text;
}

struct Values : host::SortValues {
    explicit Values(std::vector<host::Variant> all) : values(std::move(all)) {}
    std::uint32_t Count() const override { return static_cast<std::uint32_t>(values.size()); }
    const host::Variant& Value(std::uint32_t position, host::Variant&) const override {
        return values[position];
    }
    std::vector<host::Variant> values;
};

TEST_F(NumberAwareSort, PreparedTextsCompareAsTheTextsDo) {
    std::mt19937 random(11);
    std::vector<std::string> texts;
    for (int i = 0; i < 400; ++i) texts.push_back(RandomText(random));
    const auto prepared = callback_.Prepare(Values({texts.begin(), texts.end()}), 0, 0);
    ASSERT_NE(prepared, nullptr);
    std::size_t decided = 0;
    for (std::uint32_t i = 0; i < texts.size(); ++i) {
        for (std::uint32_t j = 0; j < texts.size(); ++j) {
            const std::int32_t order = Compare(texts[i], texts[j]);
            const auto lead = prepared->Lead(i).Decide(prepared->Lead(j));
            ASSERT_EQ(prepared->Compare(i, j), order) << texts[i] << " / " << texts[j];
            ASSERT_EQ(lead.value_or(order), order) << texts[i] << " / " << texts[j];
            decided += lead ? 1 : 0;
        }
    }
    EXPECT_GT(decided, texts.size() * texts.size() / 4);  // Else leads would be of no use.
}

TEST_F(NumberAwareSort, ValueWithoutTextTiesAndIsReported) {
    EXPECT_EQ(callback_.Prepare(Values({"a", host::Null{}}), 0, 0), nullptr);
    EXPECT_TRUE(Dialogs().messages.empty());
    EXPECT_EQ(Compare(host::Null{}, "a"), 0);
    ASSERT_EQ(Dialogs().messages.size(), 1U);
    EXPECT_NE(Dialogs().messages[0].text.find(
                  "\tITableSortCallBack_Compare CVNGazetteer:clsTableSortNumberAware \r\n"
                  "\tCompareStringsWithNumbers CVNGazetteer:clsTableSortNumberAware \r\n"),
              std::string::npos);
}

/// Knows no number but the Arabic 3, and cannot read a blank.
struct ArabicThree : texthost::Locale {
    std::optional<double> ParseNumber(const std::string& text) override {
        if (text == "٣") return 3;
        return std::nullopt;
    }
    std::vector<std::size_t> Characters(std::string_view text) override {
        if (text == " ") throw host::Failure(host::kFailureUnspecified, "", "gone");
        return Locale::Characters(text);
    }
};

TEST(NumberTokens, AreCutAtTheDigitsOfTheLocale) {
    ArabicThree locale;
    EXPECT_EQ(SeparateNumbers("A٣bé12", locale), "A ٣ bé 12");
    EXPECT_TRUE(ContainsNumber("é٣", locale));
    EXPECT_FALSE(ContainsNumber("éb", locale));
    for (const auto& [call, name] :
         {std::pair{+[](host::IHostLocale& in) { ContainsNumber(" ", in); }, "\tContainsNumber "},
          {+[](host::IHostLocale& in) { SeparateNumbers(" ", in); }, "\tSeparateNumbers "}}) {
        const auto failure = support::FailureOf([&, tried = call] { tried(locale); });
        EXPECT_TRUE(failure.description.starts_with(name + std::string(kSortLabel))) << name;
    }
}

}  // namespace
}  // namespace gazetteer
