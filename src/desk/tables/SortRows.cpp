#include "desk/tables/SortRows.h"

#include <deque>
#include <limits>
#include <utility>

#include "desk/tables/Scratch.h"
#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "TableSort", text);
}

/// A scratch table lends its values.
class LentRows : public SortRows {
public:
    LentRows(host::Ref<ScratchTable> table, const std::vector<std::int32_t>& keys)
        : table_(std::move(table)), keys_(keys.begin(), keys.end()) {}

    std::uint32_t Count() const override { return static_cast<std::uint32_t>(table_->RowCount()); }
    const host::Variant& Value(std::uint32_t row, std::size_t key,
                               host::Variant& storage) const override {
        return table_->Value(row, keys_[key], storage);
    }
    host::Ref<host::IHostCursor> InOrder(std::vector<std::uint32_t> order) const override {
        return table_->InOrder(std::move(order), false);
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
class FetchedRows : public SortRows {
public:
    FetchedRows(host::IHostTable& table, const host::Ref<host::IHostQueryFilter>& filter,
                const std::vector<std::int32_t>& keys)
        : keyCount_(keys.size()) {
        const auto cursor = table.Search(filter, false);
        while (auto row = cursor->NextRow()) {
            if (rows_.size() == std::numeric_limits<std::uint32_t>::max())
                Fail("The table has too many rows to sort.");
            for (const std::int32_t key : keys) values_.push_back(row->Value(key));
            rows_.push_back(std::move(row));
        }
    }

    std::uint32_t Count() const override { return static_cast<std::uint32_t>(rows_.size()); }
    const host::Variant& Value(std::uint32_t row, std::size_t key, host::Variant&) const override {
        return values_[row * keyCount_ + key];
    }
    host::Ref<host::IHostCursor> InOrder(std::vector<std::uint32_t> order) const override {
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

}  // namespace

std::unique_ptr<SortRows> SortRows::Of(const host::Ref<host::IHostTable>& table,
                                       const host::Ref<host::IHostQueryFilter>& filter,
                                       const std::vector<std::int32_t>& keys) {
    if (auto scratch = host::As<ScratchTable>(table)) {
        scratch->Search(filter, true);  // Refuses a filter as any table does.
        return std::make_unique<LentRows>(std::move(scratch), keys);
    }
    return std::make_unique<FetchedRows>(*table, filter, keys);
}

}  // namespace desk
