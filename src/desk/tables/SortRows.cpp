#include "desk/tables/SortRows.h"

#include <limits>
#include <utility>

#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "TableSort", text);
}

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

class KeyValues : public host::SortValues {
public:
    KeyValues(const SortRows& rows, std::size_t key, SortPauses& pauses)
        : rows_(rows), key_(key), pauses_(pauses) {}
    std::uint32_t Count() const override { return rows_.Count(); }
    const host::Variant& Value(std::uint32_t position, host::Variant& storage) const override {
        pauses_.Step();
        return rows_.Value(position, key_, storage);
    }
    void Pause() const override { pauses_.Pause(); }

private:
    const SortRows& rows_;
    std::size_t key_;
    SortPauses& pauses_;
};

}  // namespace

SortRows::SortRows(const host::Ref<host::IHostTable>& table,
                   const host::Ref<host::IHostQueryFilter>& filter,
                   const std::vector<std::int32_t>& keys)
    : scratch_(host::As<ScratchTable>(table)), keys_(keys.begin(), keys.end()) {
    const auto cursor = table->Search(filter, false);  // Throws for a filter with a condition.
    if (scratch_) return;
    while (auto row = cursor->NextRow()) {
        if (rows_.size() == std::numeric_limits<std::uint32_t>::max())
            Fail("The table has too many rows to sort.");
        for (const std::int32_t key : keys) values_.push_back(row->Value(key));
        rows_.push_back(std::move(row));
    }
}

std::uint32_t SortRows::Count() const {
    return static_cast<std::uint32_t>(scratch_ ? scratch_->RowCount() : rows_.size());
}

host::Ref<host::IHostCursor> SortRows::InOrder(const std::vector<std::uint32_t>& order) const {
    if (scratch_) return scratch_->InOrder(order, false);
    std::vector<host::Ref<host::IHostRow>> ordered;
    ordered.reserve(order.size());
    for (const std::uint32_t row : order) ordered.push_back(rows_[row]);
    return std::make_shared<RowListCursor>(std::move(ordered));
}

void SortKey::Prepare() {
    isTried_ = true;
    auto* const preparation = dynamic_cast<host::ITableSortPreparation*>(&callback_);
    if (preparation == nullptr) return;
    const KeyValues values(rows_, static_cast<std::size_t>(field_.sortIndex), pauses_);
    prepared_ = preparation->Prepare(values, field_.index, field_.sortIndex);
}

std::int32_t SortKey::Ask(std::uint32_t row1, std::uint32_t row2) {
    const auto key = static_cast<std::size_t>(field_.sortIndex);
    return callback_.Compare(rows_.Value(row1, key, storage1_), rows_.Value(row2, key, storage2_),
                             field_.index, field_.sortIndex);
}

}  // namespace desk
