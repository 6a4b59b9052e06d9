#include "desk/tables/TableSort.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <utility>

#include "desk/tables/FieldNames.h"
#include "desk/tables/Scratch.h"
#include "host/Failure.h"

namespace desk {

/// The rows to order, with their values at hand.
struct SortSource {
    virtual ~SortSource() = default;
    virtual std::size_t RowCount() const = 0;
    /// The value of a sort key, counted from 0.
    virtual const host::Variant& Value(std::size_t row, std::size_t key) const = 0;
    virtual host::Ref<host::IHostCursor> InOrder(const std::vector<std::uint32_t>& order) const = 0;
};

namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "TableSort", text);
}

/// A scratch table lends its values.
class LentRows : public SortSource {
public:
    LentRows(host::Ref<ScratchTable> table, std::vector<std::size_t> keys)
        : table_(std::move(table)), keys_(std::move(keys)) {}

    std::size_t RowCount() const override { return table_->RowCount(); }
    const host::Variant& Value(std::size_t row, std::size_t key) const override {
        return table_->Cell(row, keys_[key]);
    }
    host::Ref<host::IHostCursor> InOrder(const std::vector<std::uint32_t>& order) const override {
        return table_->InOrder(order, false);
    }

private:
    host::Ref<ScratchTable> table_;
    std::vector<std::size_t> keys_;
};

class RowListCursor : public host::IHostCursor {
public:
    explicit RowListCursor(std::vector<host::Ref<host::IHostRow>> rows) : rows_(std::move(rows)) {}

    host::Ref<host::IHostRow> NextRow() override {
        return next_ < rows_.size() ? rows_[next_++] : nullptr;
    }
    void InsertRow(const host::Ref<host::IHostRow>&) override {
        Fail("Sorted rows are only read.");
    }
    void Flush() override {}

private:
    std::vector<host::Ref<host::IHostRow>> rows_;
    std::size_t next_ = 0;
};

/// Of any other table the rows are fetched once.
class FetchedRows : public SortSource {
public:
    FetchedRows(host::IHostTable& table, const host::Ref<host::IHostQueryFilter>& filter,
                const std::vector<std::size_t>& keys)
        : keyCount_(keys.size()) {
        const auto cursor = table.Search(filter, false);
        while (auto row = cursor->NextRow()) {
            for (const std::size_t key : keys)
                values_.push_back(row->Value(static_cast<std::int32_t>(key)));
            rows_.push_back(std::move(row));
        }
    }

    std::size_t RowCount() const override { return rows_.size(); }
    const host::Variant& Value(std::size_t row, std::size_t key) const override {
        return values_[row * keyCount_ + key];
    }
    host::Ref<host::IHostCursor> InOrder(const std::vector<std::uint32_t>& order) const override {
        std::vector<host::Ref<host::IHostRow>> ordered;
        ordered.reserve(order.size());
        for (const std::uint32_t row : order) ordered.push_back(rows_[row]);
        return std::make_shared<RowListCursor>(std::move(ordered));
    }

private:
    std::size_t keyCount_;
    std::deque<host::Variant> values_;
    std::vector<host::Ref<host::IHostRow>> rows_;
};

/// Merges runs of doubling length. Every step moves one row, so that no answer can lead astray.
template <class GoesAfter>
void MergeSort(std::vector<std::uint32_t>& order, const GoesAfter& goesAfter) {
    std::vector<std::uint32_t> merged(order.size());
    for (std::size_t width = 1; width < order.size(); width *= 2) {
        for (std::size_t start = 0; start < order.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, order.size());
            const std::size_t end = std::min(start + 2 * width, order.size());
            std::size_t left = start, right = middle, to = start;
            // Runs that follow each other already are most of a table that comes in order.
            const bool inOrder = right >= end || !goesAfter(order[middle - 1], order[middle]);
            while (!inOrder && left < middle && right < end)
                merged[to++] =
                    goesAfter(order[left], order[right]) ? order[right++] : order[left++];
            while (left < middle) merged[to++] = order[left++];
            while (right < end) merged[to++] = order[right++];
        }
        order.swap(merged);
    }
}

}  // namespace

TableSort::TableSort() = default;
TableSort::~TableSort() = default;

void TableSort::SetTable(const host::Ref<host::IHostTable>& table) {
    table_ = table;
    source_.reset();
    order_.clear();
}

void TableSort::SetQueryFilter(const host::Ref<host::IHostQueryFilter>& filter) {
    filter_ = filter;
}

void TableSort::SetFields(const std::string& fields) {
    fields_ = fields;
}

void TableSort::SetAscending(const std::string& field, bool ascending) {
    ascending_[FoldName(field)] = ascending;
}

void TableSort::SetFieldOption(const std::string&, bool) {}

void TableSort::SetCallback(const host::Ref<host::ITableSortCallBack>& callback) {
    callback_ = callback;
}

std::vector<TableSort::Key> TableSort::Keys() const {
    std::vector<Key> keys;
    for (std::size_t start = 0; start < fields_.size();) {
        const std::size_t end = std::min(fields_.find(',', start), fields_.size());
        const std::string name = fields_.substr(start, end - start);
        const std::int32_t field = table_->FindField(name);
        if (field < 0) Fail("The table to sort has no field named " + name + ".");
        const auto direction = ascending_.find(FoldName(name));
        keys.push_back({field, direction == ascending_.end() || direction->second});
        start = end + 1;
    }
    return keys;
}

void TableSort::Sort(const host::Ref<host::IHostObject>&) {
    if (!table_) Fail("There is no table to sort.");
    const std::vector<Key> keys = Keys();
    if (!keys.empty() && !callback_) Fail("There is no comparison to sort by.");

    std::vector<std::size_t> fields;
    for (const Key& key : keys) fields.push_back(static_cast<std::size_t>(key.field));
    std::unique_ptr<SortSource> source;
    if (const auto scratch = host::As<ScratchTable>(table_)) {
        scratch->Search(filter_, true);  // Refuses a filter as any table does.
        source = std::make_unique<LentRows>(scratch, fields);
    } else {
        source = std::make_unique<FetchedRows>(*table_, filter_, fields);
    }

    std::vector<std::uint32_t> order(source->RowCount());
    std::iota(order.begin(), order.end(), 0U);
    host::ITableSortCallBack* const callback = callback_.get();
    const auto goesAfter = [&](std::uint32_t row1, std::uint32_t row2) {
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const std::int32_t answer =
                callback->Compare(source->Value(row1, i), source->Value(row2, i), keys[i].field,
                                  static_cast<std::int32_t>(i));
            if (answer != 0) return keys[i].ascending ? answer > 0 : answer < 0;
        }
        return false;
    };
    if (!keys.empty()) MergeSort(order, goesAfter);
    source_ = std::move(source);
    order_ = std::move(order);
}

host::Ref<host::IHostCursor> TableSort::Rows() {
    if (source_) return source_->InOrder(order_);
    if (!table_) Fail("There is no table to sort.");
    return table_->Search(filter_, false);
}

}  // namespace desk
