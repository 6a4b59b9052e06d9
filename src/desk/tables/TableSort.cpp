#include "desk/tables/TableSort.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "TableSort", text);
}

std::ptrdiff_t Distance(std::size_t length, std::size_t rest) {
    return static_cast<std::ptrdiff_t>(std::min(length, rest));
}

/// A row being sorted. It carries its lead, so that a merge reads memory in order: comparing values
/// of both rows for each pair takes half as long again for a million rows.
struct SortItem {
    host::SortLead lead;
    std::uint32_t row = 0;
};

/// Merges runs of doubling length. Terminates even if comparisons contradict each other.
template <class Item, class GoesAfter>
void MergeSort(std::vector<Item>& items, const GoesAfter& goesAfter, SortPauses& pauses) {
    std::vector<Item> merged(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const auto first = items.begin() + static_cast<std::ptrdiff_t>(start);
            const auto middle = first + Distance(width, items.size() - start);
            const auto end = first + Distance(2 * width, items.size() - start);
            auto left = first, right = middle;
            auto to = merged.begin() + static_cast<std::ptrdiff_t>(start);
            // In a table that is already sorted, most runs need no merge.
            const bool inOrder = right == end || !goesAfter(*(middle - 1), *middle);
            while (!inOrder && left != middle && right != end) {
                *to++ = goesAfter(*left, *right) ? *right++ : *left++;
                pauses.Step();
            }
            pauses.Step((middle - left) + (end - right));
            std::copy(right, end, std::copy(left, middle, to));
        }
        items.swap(merged);
    }
}

std::vector<std::uint32_t> OrderOf(const SortRows& rows, std::vector<SortKey>& keys,
                                   SortPauses& pauses) {
    std::vector<SortItem> items(rows.Count());
    for (std::uint32_t row = 0; row < rows.Count(); ++row) {
        pauses.Step();
        items[row] = {keys.empty() ? host::SortLead() : keys.front().Lead(row), row};
    }
    const auto goesAfter = [&](const SortItem& item1, const SortItem& item2) {
        const auto decided = keys.front().Decide(item1.lead, item2.lead);
        std::int32_t answer = decided ? *decided : keys.front().Compare(item1.row, item2.row);
        for (std::size_t i = 1; answer == 0 && i < keys.size(); ++i)
            answer = keys[i].Compare(item1.row, item2.row);
        return answer > 0;
    };
    if (!keys.empty()) MergeSort(items, goesAfter, pauses);
    std::vector<std::uint32_t> order;
    order.reserve(items.size());
    for (const SortItem& item : items) order.push_back(item.row);
    return order;
}

}  // namespace

void TableSort::SetTable(const host::Ref<host::IHostTable>& table) {
    table_ = table;
    rows_.reset();
    order_.clear();
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
    auto rows = std::make_unique<SortRows>(table_, filter_, indexes);
    std::vector<SortKey> keys;
    SortPauses pauses(listener_, rows->Count());
    for (const SortKey::Field& field : fields) keys.emplace_back(field, *rows, *callback_, pauses);
    order_ = OrderOf(*rows, keys, pauses);
    rows_ = std::move(rows);
}

host::Ref<host::IHostCursor> TableSort::Rows() {
    if (rows_) return rows_->InOrder(order_);
    if (!table_) Fail("There is no table to sort.");
    return table_->Search(filter_, false);
}

}  // namespace desk
