#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"
#include "desk/locale/IcuLocale.h"
#include "host/Failure.h"
#include "support/ScratchTables.h"

namespace desk {
namespace {

using support::NewScratchTable;

class ExpressionEngineTest : public testing::Test {
protected:
    std::string Evaluate(const std::string& expression) {
        return engine_.Evaluate(table_, row_, expression, tokens_);
    }

    host::Ref<host::IHostTable> table_ =
        NewScratchTable({"Listing", "Width", "Note", "Sly", "Flag", "Count"},
                        {{"Abbey Road", 12.5, host::Null{}, "$$ROW [Listing]", true, 4}});
    host::Ref<host::IHostRow> row_ = table_->Search(nullptr, false)->NextRow();
    host::TokenValues tokens_ = {
        {"PAGE_NUMBER", 5}, {"ROW", std::string("B")}, {"COLUMN", host::Null{}}};
    ExpressionEngine engine_{std::make_shared<IcuLocale>("de")};
};

TEST_F(ExpressionEngineTest, PutsValuesIntoText) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"", ""},
        {"[LISTING]-[listing]", "Abbey Road-Abbey Road"},
        {"$$PAGE_NUMBER $$ROW-$$COLUMN", "5 B-"},
        {"[Listing]$$DOTS$$PAGE_NUMBER", "Abbey Road$$DOTS5"},
        {"$$NEWLINE$$LASTCOMBINE", "$$NEWLINE$$LASTCOMBINE"},
        {"$$row $$ROWS $$", "$$row BS $$"},
        {"$$$ROW $ROW", "$B $ROW"},
        {"$$$$ROW", "$$B"},
        {"[Width]|[Note]|[Flag]|[Count]", "12,5||True|4"},
        {"[Sly]", "$$ROW [Listing]"},
        {"a]b", "a]b"}};
    for (const auto& [expression, text] : cases) {
        EXPECT_TRUE(engine_.IsValidExpression(table_, expression)) << expression;
        EXPECT_EQ(Evaluate(expression), text);
        EXPECT_EQ(Evaluate(expression), text) << "taken apart before";
    }
}

TEST_F(ExpressionEngineTest, ExplainsWhatIsNotValid) {
    // Expression, text, field, the part at fault.
    const std::vector<std::vector<std::string>> cases = {
        {"x [Listing", "[ without ]", "", "[Listing"},
        {"[Listing][", "[ without ]", "", "["},
        {"[Foo] [Bar]", "no field named Foo", "Foo", "[Foo]"},
        {"\u00e9 [ Listing ] x", "no field named  Listing ", " Listing ", "[ Listing ]"},
        {"a[]b", "[] names no field", "", "[]"}};
    for (const auto& expected : cases) {
        const auto finding = engine_.Explain(table_, expected[0]);
        EXPECT_EQ(finding.text, expected[1]);
        EXPECT_EQ(finding.field, expected[2]);
        EXPECT_EQ(expected[0].substr(finding.begin, finding.length), expected[3]);
        EXPECT_FALSE(engine_.IsValidExpression(table_, expected[0]));
        EXPECT_THROW(Evaluate(expected[0]), host::Failure);
    }
    EXPECT_TRUE(engine_.IsValidExpression(nullptr, "$$ROW"));
    EXPECT_FALSE(engine_.IsValidExpression(nullptr, "[Listing]"));
}

TEST_F(ExpressionEngineTest, KeepsTablesApart) {
    // Each table has the field elsewhere, and each may come to stand where the last one was.
    const std::vector<std::string> fields[] = {{"Name"}, {"F0", "Name"}, {"F0", "F1", "Name"}};
    for (int i = 0; i < 100; ++i) {
        const auto table = NewScratchTable(fields[i % 3]);
        const auto row = table->CreateRowBuffer();
        row->SetValue(i % 3, std::to_string(i));
        EXPECT_EQ(engine_.Evaluate(table, row, "[Name]", {}), std::to_string(i));
    }
}

TEST_F(ExpressionEngineTest, FailsWhereAValueIsMissing) {
    EXPECT_THROW(engine_.Evaluate(table_, nullptr, "[Listing]", tokens_), host::Failure);
    EXPECT_EQ(engine_.Evaluate(table_, nullptr, "$$ROW", tokens_), "B");
    EXPECT_THROW(engine_.Evaluate(table_, row_, "$$ROW", {}), host::Failure);
}

}  // namespace
}  // namespace desk
