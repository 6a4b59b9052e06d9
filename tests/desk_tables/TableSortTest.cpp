#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "desk/tables/TableSort.h"
#include "host/Failure.h"
#include "listings/NumberAwareSort.h"
#include "support/DbfBuilder.h"
#include "support/ScratchTables.h"
#include "support/SmallHost.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

using support::NewScratchTable;

struct Callback : host::ITableSortCallBack {
    using Compared = std::function<int(const std::string&, const std::string&)>;
    explicit Callback(Compared answer) : compare(std::move(answer)) {}
    std::int32_t Compare(const host::Variant& a, const host::Variant& b, std::int32_t fieldIndex,
                         std::int32_t fieldSortIndex) override {
        asked.emplace_back(fieldIndex, fieldSortIndex);
        return compare(std::get<std::string>(a), std::get<std::string>(b));
    }
    Compared compare;
    std::vector<std::pair<std::int32_t, std::int32_t>> asked;
};

int ByText(const std::string& a, const std::string& b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

std::vector<int> Order(TableSort& sort) {
    std::vector<int> order;
    const auto rows = sort.Rows();
    while (const auto row = rows->NextRow()) order.push_back(row->OID());
    return order;
}

TEST(TableSort, TakesKeysInOrderAndDirection) {
    struct Case {
        const char* fields;
        bool ascendingA, ascendingB;
        std::vector<int> order;
    };
    const Case cases[] = {{"", true, true, {1, 2, 3, 4}},    {"A", true, true, {2, 4, 1, 3}},
                          {"A", false, true, {1, 3, 2, 4}},  {"A,B", true, true, {2, 4, 3, 1}},
                          {"B,A", true, true, {3, 1, 2, 4}}, {"a,b", false, false, {1, 3, 2, 4}},
                          {"A,B", true, false, {2, 4, 1, 3}}};
    const support::TemporaryFolder folder;
    support::DbfBuilder({{"A", 'C', 3}, {"B", 'C', 3}})
        .Row({"b", "1"})
        .Row({"a", "2"})
        .Row({"b", "0"})
        .Row({"a", "2"})
        .Write(folder.File("a.dbf"));
    const auto stored = std::make_shared<DbfTable>(folder.File("a.dbf"));
    const auto scratch =
        NewScratchTable({"A", "B"}, {{"b", "1"}, {"a", "2"}, {"b", "0"}, {"a", "2"}});
    for (const host::Ref<host::IHostTable>& table :
         {scratch, host::Ref<host::IHostTable>(stored)}) {
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
        std::vector<std::vector<host::Variant>> rows(random() % 70);
        for (auto& row : rows) row = {std::to_string(random() % 9)};
        TableSort sort;
        sort.SetFields("A");
        sort.SetTable(NewScratchTable({"A"}, rows));
        const bool isOrder = round % 2 == 0;
        sort.SetCallback(
            std::make_shared<Callback>([&](const std::string& a, const std::string& b) {
                return isOrder ? ByText(a, b) : static_cast<int>(random() % 3) - 1;
            }));
        sort.Sort(nullptr);
        std::vector<int> order = Order(sort);
        std::vector<int> expected(rows.size());
        std::iota(expected.begin(), expected.end(), 1);
        if (isOrder)
            std::ranges::stable_sort(expected, {}, [&](int oid) {
                return std::get<std::string>(rows[static_cast<std::size_t>(oid - 1)][0]);
            });
        else
            std::ranges::sort(order);
        EXPECT_EQ(order, expected);
    }
}

// Hides what a callback offers beside its comparison.
struct OnlyCompare : host::ITableSortCallBack {
    explicit OnlyCompare(host::Ref<host::ITableSortCallBack> whole) : callback(std::move(whole)) {}
    std::int32_t Compare(const host::Variant& a, const host::Variant& b, std::int32_t field,
                         std::int32_t sortField) override {
        return callback->Compare(a, b, field, sortField);
    }
    host::Ref<host::ITableSortCallBack> callback;
};

// The order of words and numbers is no strict one: only the same answers come to the same order.
TEST(TableSort, PreparationChangesNoOrderAndNoDialog) {
    static const char* const kTexts[] = {"",     "a",   "A 9",  "9a",  "9", "10", "a 10",
                                         "10 b", "9 b", "b 9a", "a9b", "é", "中", "10 a 9 b a"};
    support::SmallHost small;
    const auto whole = std::make_shared<gazetteer::clsTableSortNumberAware>(small.Host());
    std::mt19937 random(12);
    for (std::size_t round = 0; round < 60; ++round) {
        std::vector<std::vector<host::Variant>> rows(random() % 300);
        for (auto& row : rows) {
            for (int i = 0; i < 2; ++i) row.emplace_back(kTexts[random() % std::size(kTexts)]);
            // Some fields hold a value that has no text.
            if (round % 4 == 3 && random() % 50 == 0) row[round % 8 / 4] = host::Null{};
        }
        const auto table = NewScratchTable({"A", "B"}, rows);
        const auto sorted = [&](const host::Ref<host::ITableSortCallBack>& callback) {
            small.Dialogs().messages.clear();
            TableSort sort;
            sort.SetFields("A,B");
            sort.SetAscending("A", round % 2 == 0);
            sort.SetCallback(callback);
            sort.SetTable(table);
            sort.Sort(nullptr);
            return std::pair(Order(sort), small.Dialogs().messages.size());
        };
        EXPECT_EQ(sorted(whole), sorted(std::make_shared<OnlyCompare>(whole)));
    }
}

TEST(TableSort, TellsTheCallbackWhichFieldItAsksFor) {
    const auto callback = std::make_shared<Callback>(ByText);
    TableSort sort;
    sort.SetFields("B,A");
    sort.SetTable(NewScratchTable({"A", "B"}, {{"a", "x"}, {"b", "x"}}));
    sort.SetCallback(callback);
    sort.Sort(nullptr);
    const std::vector<std::pair<std::int32_t, std::int32_t>> expected = {{1, 0}, {0, 1}};
    EXPECT_EQ(callback->asked, expected);
}

TEST(TableSort, FailsWhereItHasNothingToGoBy) {
    TableSort sort;
    EXPECT_THROW(sort.Sort(nullptr), host::Failure);
    sort.SetTable(NewScratchTable({"A"}, {{"b"}, {"a"}}));
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
