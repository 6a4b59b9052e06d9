#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/Scratch.h"
#include "desk/tables/TableSort.h"
#include "host/Failure.h"
#include "support/DbfBuilder.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

using Row = std::vector<std::string>;

struct Callback : host::ITableSortCallBack {
    using Compared = std::function<int(const std::string&, const std::string&)>;
    explicit Callback(Compared answer) : compare(std::move(answer)) {}
    std::int32_t Compare(const host::Variant& value1, const host::Variant& value2,
                         std::int32_t fieldIndex, std::int32_t fieldSortIndex) override {
        asked.emplace_back(fieldIndex, fieldSortIndex);
        return compare(std::get<std::string>(value1), std::get<std::string>(value2));
    }
    Compared compare;
    std::vector<std::pair<std::int32_t, std::int32_t>> asked;
};

int ByText(const std::string& a, const std::string& b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

host::Ref<host::IHostTable> Scratch(const std::vector<Row>& rows) {
    const auto fields = std::make_shared<Fields>();
    fields->SetFieldCount(2);
    fields->SetField(0, std::make_shared<Field>("A", host::kFieldTypeText, 10));
    fields->SetField(1, std::make_shared<Field>("B", host::kFieldTypeText, 10));
    auto table = std::make_shared<ScratchTable>("T", fields);
    const auto insert = table->Insert(true);
    for (const Row& row : rows) {
        const auto buffer = table->CreateRowBuffer();
        for (std::size_t i = 0; i < row.size(); ++i)
            buffer->SetValue(static_cast<std::int32_t>(i), row[i]);
        insert->InsertRow(buffer);
    }
    return table;
}

std::vector<int> Order(TableSort& sort) {
    std::vector<int> order;
    const auto rows = sort.Rows();
    while (const auto row = rows->NextRow()) order.push_back(row->OID());
    return order;
}

TEST(TableSort, TakesKeysInOrderAndDirection) {
    const std::vector<Row> rows = {{"b", "1"}, {"a", "2"}, {"b", "0"}, {"a", "2"}};
    struct Case {
        std::string fields;
        bool ascendingA, ascendingB;
        std::vector<int> order;
    };
    const std::vector<Case> cases = {
        {"", true, true, {1, 2, 3, 4}},    {"A", true, true, {2, 4, 1, 3}},
        {"A", false, true, {1, 3, 2, 4}},  {"A,B", true, true, {2, 4, 3, 1}},
        {"B,A", true, true, {3, 1, 2, 4}}, {"a,b", false, false, {1, 3, 2, 4}},
        {"A,B", true, false, {2, 4, 1, 3}}};
    const support::TemporaryFolder folder;
    support::DbfBuilder builder({{"A", 'C', 3}, {"B", 'C', 3}});
    for (const Row& row : rows) builder.Row(row);
    builder.Write(folder.File("a.dbf"));
    for (const host::Ref<host::IHostTable>& table :
         {Scratch(rows),
          host::Ref<host::IHostTable>(std::make_shared<DbfTable>(folder.File("a.dbf")))}) {
        for (const Case& example : cases) {
            TableSort sort;
            sort.SetFields(example.fields);
            sort.SetAscending("A", example.ascendingA);
            sort.SetAscending("B", example.ascendingB);
            sort.SetCallback(std::make_shared<Callback>(ByText));
            sort.SetTable(table);
            sort.Sort(nullptr);
            EXPECT_EQ(Order(sort), example.order) << example.fields;
        }
    }
}

/// Any answers at all, also those that form circles, give every row once; a true order is kept.
TEST(TableSort, SurvivesAnyAnswers) {
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::vector<Row> rows(random() % 70);
        for (Row& row : rows) row = {std::to_string(random() % 9), "x"};
        TableSort sort;
        sort.SetFields("A");
        sort.SetTable(Scratch(rows));
        const bool isOrder = round % 2 == 0;
        sort.SetCallback(
            std::make_shared<Callback>([&](const std::string& a, const std::string& b) {
                return isOrder ? ByText(a, b) : static_cast<int>(random() % 3) - 1;
            }));
        sort.Sort(nullptr);
        std::vector<int> order = Order(sort);
        std::vector<int> expected(rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) expected[i] = static_cast<int>(i) + 1;
        if (isOrder)
            std::stable_sort(expected.begin(), expected.end(), [&](int a, int b) {
                return rows[static_cast<std::size_t>(a - 1)][0] <
                       rows[static_cast<std::size_t>(b - 1)][0];
            });
        else
            std::sort(order.begin(), order.end());
        EXPECT_EQ(order, expected);
    }
}

TEST(TableSort, TellsTheCallbackWhichFieldItAsksFor) {
    const auto callback = std::make_shared<Callback>(ByText);
    TableSort sort;
    sort.SetFields("B,A");
    sort.SetTable(Scratch({{"a", "x"}, {"b", "x"}}));
    sort.SetCallback(callback);
    sort.Sort(nullptr);
    const std::vector<std::pair<std::int32_t, std::int32_t>> expected = {{1, 0}, {0, 1}};
    EXPECT_EQ(callback->asked, expected);
}

TEST(TableSort, FailsWhereItHasNothingToGoBy) {
    TableSort sort;
    EXPECT_THROW(sort.Sort(nullptr), host::Failure);
    sort.SetTable(Scratch({{"b", ""}, {"a", ""}}));
    sort.SetFields("C");
    sort.SetCallback(std::make_shared<Callback>(ByText));
    EXPECT_THROW(sort.Sort(nullptr), host::Failure);
    sort.SetFields("A");
    sort.SetCallback(std::make_shared<Callback>(
        [](const std::string&, const std::string&) -> int { throw host::Failure(-1, "", "no"); }));
    EXPECT_THROW(sort.Sort(nullptr), host::Failure);
    EXPECT_EQ(Order(sort), (std::vector<int>{1, 2}));
}

}  // namespace
}  // namespace desk
