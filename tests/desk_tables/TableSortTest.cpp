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
#include "support/Text.h"

namespace desk {
namespace {

using support::NewScratchTable;

struct Callback : host::ITableSortCallBack {
    using Answer = std::function<int(const host::Variant&, const host::Variant&, int, int)>;
    explicit Callback(Answer answer) : compare(std::move(answer)) {}
    std::int32_t Compare(const host::Variant& a, const host::Variant& b, std::int32_t fieldIndex,
                         std::int32_t fieldSortIndex) override {
        return compare(a, b, fieldIndex, fieldSortIndex);
    }
    Answer compare;
};

int ByText(const host::Variant& a, const host::Variant& b, int, int) {
    return std::get<std::string>(a).compare(std::get<std::string>(b));
}

std::vector<int> Order(TableSort& sort) {
    std::vector<int> order;
    const auto rows = sort.Rows();
    while (const auto row = rows->NextRow()) order.push_back(row->OID());
    return order;
}

TEST(TableSort, TakesKeysInOrderAndDirection) {
    const std::tuple<const char*, bool, bool, std::vector<int>> cases[] = {
        {"", true, true, {1, 2, 3, 4}},     {"A", true, true, {2, 4, 1, 3}},
        {"A", false, true, {1, 3, 2, 4}},   {"A,B", true, true, {2, 4, 3, 1}},
        {"B,A", true, true, {3, 1, 2, 4}},  {"a,b", false, false, {1, 3, 2, 4}},
        {"A,B", true, false, {2, 4, 1, 3}}, {"B", true, true, {3, 1, 2, 4}}};
    const support::TemporaryFolder folder;
    support::DbfBuilder stored({{"A", 'C', 3}, {"B", 'C', 3}});
    std::vector<std::vector<host::Variant>> rows;
    for (const auto& [a, b] : {std::pair{"b", "1"}, {"a", "2"}, {"b", "0"}, {"a", "2"}}) {
        stored.Row({a, b});
        rows.push_back({a, b});
    }
    stored.Write(folder.File("a.dbf"));
    const host::Ref<host::IHostTable> tables[] = {NewScratchTable({"A", "B"}, rows),
                                                  std::make_shared<DbfTable>(folder.File("a.dbf"))};
    for (const auto& table : tables) {
        for (const auto& [fields, ascendingA, ascendingB, order] : cases) {
            TableSort sort;
            sort.SetFields(fields);
            sort.SetAscending("A", ascendingA);
            sort.SetAscending("B", ascendingB);
            const auto names = gazetteer::Split(fields, ',');
            const auto compare = [&](const auto& a, const auto& b, int field, int key) {
                EXPECT_EQ(table->FindField(names.at(static_cast<std::size_t>(key))), field);
                return ByText(a, b, field, key);
            };
            sort.SetCallback(std::make_shared<Callback>(compare));
            sort.SetTable(table);
            sort.Sort(nullptr);
            EXPECT_EQ(Order(sort), order) << fields;
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
        sort.SetCallback(std::make_shared<Callback>([&](const auto& a, const auto& b, int, int) {
            return isOrder ? ByText(a, b, 0, 0) : static_cast<int>(random() % 3) - 1;
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

// The order of words and numbers is no strict one: only the same answers come to the same order.
TEST(TableSort, PreparationChangesNoOrderAndNoDialog) {
    static const char* const kTexts[] = {"",     "a",   "A 9",  "9a",  "9", "10", "a 10",
                                         "10 b", "9 b", "b 9a", "a9b", "é", "中", "10 a 9 b a"};
    support::SmallHost small;
    const auto whole = std::make_shared<gazetteer::clsTableSortNumberAware>(small.Host());
    // Hides what the callback offers beside its comparison.
    const auto onlyCompare =
        std::make_shared<Callback>([&](const auto&... asked) { return whole->Compare(asked...); });
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
        EXPECT_EQ(sorted(whole), sorted(onlyCompare));
    }
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
        [](const auto&...) -> int { throw host::Failure(-1, "", "no"); }));
    EXPECT_THROW(sort.Sort(nullptr), host::Failure);
    EXPECT_EQ(Order(sort), (std::vector<int>{1, 2}));
}

}  // namespace
}  // namespace desk
