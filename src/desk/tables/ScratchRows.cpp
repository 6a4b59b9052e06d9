#include "desk/tables/ScratchRows.h"

#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
    throw host::Failure(number, "ScratchTable", text);
}

}  // namespace

std::size_t ScratchBuffer::Position(std::int32_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= values_.size())
        Fail(host::kFailureNotFound, "A row has no field number " + std::to_string(index) + ".");
    return static_cast<std::size_t>(index);
}

host::Variant ScratchRow::Value(std::int32_t index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= table_->FieldCount())
        Fail(host::kFailureNotFound,
             "The table " + table_->Name() + " has no field number " + std::to_string(index) + ".");
    return table_->Value(row_, static_cast<std::size_t>(index));
}

void ScratchRow::SetValue(std::int32_t, host::Variant) {
    Fail(host::kFailureUnspecified,
         "Rows of the table " + table_->Name() + " do not change once they are inserted.");
}

host::Ref<host::IHostRow> ScratchReadCursor::NextRow() {
    if (next_ >= (isOrdered_ ? order_.size() : table_->RowCount())) return nullptr;
    const std::size_t position = isOrdered_ ? order_[next_] : next_;
    if (isOrdered_) table_->LookAhead(order_, next_);
    ++next_;
    if (!row_ || !recycling_)
        row_ = std::make_shared<ScratchRow>(table_, position);
    else
        row_->MoveTo(position);
    return row_;
}

void ScratchReadCursor::InsertRow(const host::Ref<host::IHostRow>&) {
    Fail(host::kFailureUnspecified, "This cursor of the table " + table_->Name() + " only reads.");
}

}  // namespace desk
