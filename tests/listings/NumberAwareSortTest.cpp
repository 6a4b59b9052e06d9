#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "listings/NumberAwareSort.h"
#include "support/ErrorHandling.h"
#include "support/FailureOf.h"
#include "support/ScratchTables.h"
#include "support/TestDesk.h"

namespace gazetteer {
namespace {

class NumberAwareSort : public ::testing::Test {
protected:
    int Compare(const host::Variant& a, const host::Variant& b) {
        return callback_.Compare(a, b, 0, 0);
    }
    support::TestDesk desk_;
    clsTableSortNumberAware callback_{desk_.Host()};
};

TEST_F(NumberAwareSort, PairsOfTexts) {
    const std::tuple<std::string, std::string, int> cases[] = {
        {"2", "10", -1},
        {"1.5", "1.50", 0},
        {"1,000", "999", 1},
        {"1E5", "20000", 1},
        {"007", "7", 0},
        {"007 b", "7 a", 1},
        {"AVE 2", "AVE 10", -1},
        {"Main", "MAIN", 0},
        {"2ND", "10TH", -1},
        {"A10", "A9", 1},
        {"A1", "A1B", 1},
        {"10", "9A", 1},
        {"2ND", "AVE", -1},
        {"10", "AVE", -1},
        {"MAIN ST", "MAIN ST N", 1},  // The text with more tokens goes first.
        {"", "X", 1},
        {"", "", 0},
        {"a  b", "a b", -1},  // An empty token sorts before any other.
        {" ", "", -1},
        {"3-4", "3-12", -1},
        {"Übach", "Ubach", 1},
        {"Été 2", "été 10", -1},
        {"٣", "٢٢", -1},  // Arabic-Indic digits are digits.
    };
    for (const auto& [first, second, order] : cases) {
        EXPECT_EQ(Compare(first, second), order) << first << " / " << second;
        EXPECT_EQ(Compare(second, first), -order) << second << " / " << first;
    }
}

// Texts of few words, so that many are alike: numbers, letters and both in one, in several
// alphabets, with blanks in odd places. They form ties and circles.
std::string RandomText(std::mt19937& random) {
    static const char* const kPieces[] = {"a",   "A",   "b",       "ab", "é",    "E",     "ж",
                                          "Ж",   "中",  "e\u0301", "9",  "10",   "9a",    "a9",
                                          "a10", "10B", "007",     "7",  "1.5",  "1,000", "٣",
                                          "٢٢",  "٣a",  "-",       "",   "\xFF", "1E5",   "A12B9"};
    std::string text;
    for (std::size_t words = random() % 7; words > 0; --words) {
        text += kPieces[random() % std::size(kPieces)];
        if (random() % 5 != 0) text += ' ';
    }
    return text;
}

class Texts : public host::SortValues {
public:
    explicit Texts(std::vector<std::string> texts) : texts_(std::move(texts)) {}
    std::uint32_t Count() const override { return static_cast<std::uint32_t>(texts_.size()); }
    const host::Variant& Value(std::uint32_t position, host::Variant& storage) const override {
        return storage = texts_[position];
    }

private:
    std::vector<std::string> texts_;
};

TEST_F(NumberAwareSort, PreparedTextsCompareAsTheTextsDo) {
    std::mt19937 random(11);
    std::vector<std::string> texts;
    for (int i = 0; i < 700; ++i) texts.push_back(RandomText(random));
    const auto prepared = callback_.Prepare(Texts(texts), 0, 0);
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

// A callback as other hosts see it.
struct OnlyCompare : host::ITableSortCallBack {
    explicit OnlyCompare(host::IHost& host) : callback(host) {}
    std::int32_t Compare(const host::Variant& a, const host::Variant& b, std::int32_t field,
                         std::int32_t sortField) override {
        return callback.Compare(a, b, field, sortField);
    }
    clsTableSortNumberAware callback;
};

TEST_F(NumberAwareSort, PreparationChangesNoOrderAndNoDialog) {
    std::mt19937 random(12);
    for (std::size_t round = 0; round < 60; ++round) {
        std::vector<std::vector<host::Variant>> rows(random() % 300);
        for (auto& row : rows) {
            row = {RandomText(random), RandomText(random)};
            // Some fields hold a value that has no text.
            if (round % 4 == 3 && random() % 50 == 0) row[round % 8 / 4] = host::Null{};
        }
        const auto table = support::NewScratchTable({"A", "B"}, rows);
        const auto order = [&](const host::Ref<host::ITableSortCallBack>& callback) {
            desk_.Dialogs().messages.clear();
            const auto sort = desk_.Host().NewTableSort();
            sort->SetFields("A,B");
            sort->SetAscending("A", round % 2 == 0);
            sort->SetCallback(callback);
            sort->SetTable(table);
            sort->Sort(nullptr);
            std::vector<std::int32_t> oids;
            const auto sorted = sort->Rows();
            while (const auto row = sorted->NextRow()) oids.push_back(row->OID());
            return std::pair(oids, desk_.Dialogs().messages.size());
        };
        EXPECT_EQ(order(std::make_shared<clsTableSortNumberAware>(desk_.Host())),
                  order(std::make_shared<OnlyCompare>(desk_.Host())));
    }
}

TEST_F(NumberAwareSort, ValueWithoutTextTiesAndIsReported) {
    EXPECT_EQ(Compare(host::Null{}, std::string("a")), 0);
    ASSERT_EQ(desk_.Dialogs().messages.size(), 1U);
    EXPECT_NE(desk_.Dialogs().messages[0].text.find(
                  "\tITableSortCallBack_Compare CVNGazetteer:clsTableSortNumberAware \r\n"
                  "\tCompareStringsWithNumbers CVNGazetteer:clsTableSortNumberAware \r\n"),
              std::string::npos);
}

struct NoLocale : host::IHostLocale {
    int CompareText(const std::string&, const std::string&) override { Fail(); }
    std::string CollationKey(const std::string&) override { Fail(); }
    std::optional<double> ParseNumber(const std::string&) override { Fail(); }
    std::string FormatNumber(double) override { Fail(); }
    std::vector<std::size_t> Characters(std::string_view) override { Fail(); }

private:
    [[noreturn]] static void Fail() { throw host::Failure(host::kFailureUnspecified, "", "gone"); }
};

TEST(NumberTokens, FailuresTellTheirPlace) {
    NoLocale locale;
    const auto place = [](const auto& call) {
        return support::FailureOf(call).description.substr(0, 60);
    };
    EXPECT_EQ(place([&] {
                  ContainsNumber("a", locale);
              }).find("\tContainsNumber " + std::string(kSortLabel)),
              0U);
    EXPECT_EQ(place([&] {
                  SeparateNumbers("a", locale);
              }).find("\tSeparateNumbers " + std::string(kSortLabel)),
              0U);
}

}  // namespace
}  // namespace gazetteer
