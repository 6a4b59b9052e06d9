#include "desk/tables/TableSort.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "desk/tables/MergeSort.h"
#include "desk/unicode/FoldCase.h"
#include "host/Failure.h"

namespace desk {

namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "TableSort", text);
}

std::vector<std::uint32_t> OrderOf(const SortRows& rows, std::vector<SortKey>& keys) {
    std::vector<std::uint32_t> order(rows.Count());
    std::iota(order.begin(), order.end(), 0U);
    const auto goesAfter = [&](std::uint32_t row1, std::uint32_t row2) {
        for (SortKey& key : keys)
            if (const std::int32_t answer = key.Compare(row1, row2)) return answer > 0;
        return false;
    };
    if (!keys.empty()) MergeSort(order, goesAfter);
    return order;
}

}  // namespace

TableSort::TableSort() = default;
TableSort::~TableSort() = default;

void TableSort::SetTable(const host::Ref<host::IHostTable>& table) {
    table_ = table;
    rows_.reset();
    order_.clear();
}

void TableSort::SetQueryFilter(const host::Ref<host::IHostQueryFilter>& filter) {
    filter_ = filter;
}

void TableSort::SetFields(const std::string& fields) {
    fields_ = fields;
}

void TableSort::SetAscending(const std::string& field, bool ascending) {
    ascending_[field] = ascending;
}

void TableSort::SetFieldOption(const std::string&, bool) {}

void TableSort::SetCallback(const host::Ref<host::ITableSortCallBack>& callback) {
    callback_ = callback;
}

std::vector<SortKey::Field> TableSort::Keys() const {
    std::vector<SortKey::Field> keys;
    for (std::size_t start = 0; start < fields_.size();) {
        const std::size_t end = std::min(fields_.find(',', start), fields_.size());
        const std::string name = fields_.substr(start, end - start);
        const std::int32_t field = table_->FindField(name);
        if (field < 0) Fail("The table to sort has no field named " + name + ".");
        bool ascending = true;
        for (const auto& [directed, direction] : ascending_)
            if (table_->FindField(directed) == field) ascending = direction;
        keys.push_back({field, static_cast<std::int32_t>(keys.size()), ascending});
        start = end + 1;
    }
    return keys;
}

void TableSort::Sort(const host::Ref<host::IHostObject>&) {
    if (!table_) Fail("There is no table to sort.");
    const std::vector<SortKey::Field> fields = Keys();
    if (!fields.empty() && !callback_) Fail("There is no comparison to sort by.");

    std::vector<std::int32_t> indexes;
    for (const SortKey::Field& field : fields) indexes.push_back(field.index);
    auto rows = SortRows::Of(table_, filter_, indexes);
    std::vector<SortKey> keys;
    for (const SortKey::Field& field : fields) keys.emplace_back(field, *rows, *callback_);
    order_ = OrderOf(*rows, keys);
    rows_ = std::move(rows);
}

host::Ref<host::IHostCursor> TableSort::Rows() {
    if (rows_) return rows_->InOrder(order_);
    if (!table_) Fail("There is no table to sort.");
    return table_->Search(filter_, false);
}

}  // namespace desk
