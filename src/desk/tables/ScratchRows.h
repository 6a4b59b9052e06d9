#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/tables/Scratch.h"

namespace desk {

/// A row before it is inserted.
class ScratchBuffer : public host::IHostRow {
public:
    explicit ScratchBuffer(std::size_t fieldCount) : values_(fieldCount) {}

    host::Variant Value(std::int32_t index) const override { return values_.at(Position(index)); }
    void SetValue(std::int32_t index, host::Variant value) override {
        values_.at(Position(index)) = std::move(value);
    }
    /// -1 until the row is inserted.
    std::int32_t OID() const override { return oid_; }
    /// As it was made.
    void Clear() {
        values_.assign(values_.size(), host::Variant());
        oid_ = -1;
    }
    void SetOID(std::int32_t oid) { oid_ = oid; }
    const std::vector<host::Variant>& Values() const { return values_; }

private:
    std::size_t Position(std::int32_t index) const;

    std::vector<host::Variant> values_;
    std::int32_t oid_ = -1;
};

/// A row in its table.
class ScratchRow : public host::IHostRow {
public:
    ScratchRow(host::Ref<const ScratchTable> table, std::size_t row)
        : table_(std::move(table)), row_(row) {}

    void MoveTo(std::size_t row) { row_ = row; }
    host::Variant Value(std::int32_t index) const override;
    void SetValue(std::int32_t index, host::Variant value) override;
    std::int32_t OID() const override { return static_cast<std::int32_t>(row_ + 1); }

private:
    host::Ref<const ScratchTable> table_;
    std::size_t row_;
};

/// Rows in table order, or in the order of a list of positions.
class ScratchReadCursor : public host::IHostCursor {
public:
    ScratchReadCursor(host::Ref<const ScratchTable> table, bool recycling)
        : table_(std::move(table)), recycling_(recycling) {}
    ScratchReadCursor(host::Ref<const ScratchTable> table, std::vector<std::uint32_t> order,
                      bool recycling)
        : table_(std::move(table)),
          order_(std::move(order)),
          isOrdered_(true),
          recycling_(recycling) {}

    host::Ref<host::IHostRow> NextRow() override;
    void InsertRow(const host::Ref<host::IHostRow>& buffer) override;
    void Flush() override {}

private:
    host::Ref<const ScratchTable> table_;
    std::vector<std::uint32_t> order_;
    bool isOrdered_ = false;
    bool recycling_;
    std::size_t next_ = 0;
    host::Ref<ScratchRow> row_;
};

}  // namespace desk
