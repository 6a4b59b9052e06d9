#include <gtest/gtest.h>

#include "listings/NumberAwareSort.h"
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
    struct Case {
        const char* first;
        const char* second;
        int order;
    };
    const Case cases[] = {
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
    for (const Case& c : cases) {
        EXPECT_EQ(Compare(std::string(c.first), std::string(c.second)), c.order)
            << c.first << " / " << c.second;
        EXPECT_EQ(Compare(std::string(c.second), std::string(c.first)), -c.order)
            << c.second << " / " << c.first;
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

}  // namespace
}  // namespace gazetteer
