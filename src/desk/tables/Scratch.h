#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desk/tables/PlainObjects.h"
#include "desk/tables/ScratchCells.h"
#include "host/StepCounts.h"
#include "host/Tables.h"

namespace desk {

class ScratchBuffer;

/// A table in memory. Texts longer than their field are kept whole. Rows are numbered from 1 in
/// order of insertion; fields of the identifier type contain that number.
class ScratchTable : public host::IHostTable,
                     public host::IHostRowCount,
                     public std::enable_shared_from_this<ScratchTable> {
public:
    ScratchTable(std::string name, const host::Ref<host::IHostFields>& fields);

    host::Ref<host::IHostFields> Fields() const override { return fields_; }
    std::int32_t FindField(const std::string& name) const override { return names_.Find(name); }
    host::Ref<host::IHostCursor> Search(const host::Ref<host::IHostQueryFilter>& filter,
                                        bool recycling) override;
    /// Inserted rows are visible at once, buffered or not.
    host::Ref<host::IHostCursor> Insert(bool useBuffering) override;
    host::Ref<host::IHostRow> CreateRowBuffer() override;

    const std::string& Name() const { return name_; }
    std::size_t RowCount() const { return rowCount_; }
    std::int64_t CountRows() const override { return static_cast<std::int64_t>(rowCount_); }
    std::size_t FieldCount() const { return slots_.size(); }
    /// Returns a value, possibly held by the storage. Row and field count from 0 and must exist.
    const host::Variant& Value(std::size_t row, std::size_t field, host::Variant& storage) const;
    /// Prefetches rows of an order; `next` is the position of the row read next.
    void LookAhead(const std::vector<std::uint32_t>& order, std::size_t next) const;
    /// Returns the rows in an order of positions from 0.
    host::Ref<host::IHostCursor> InOrder(std::vector<std::uint32_t> order, bool recycling);

private:
    friend class ScratchInsertCursor;
    static constexpr std::size_t kObjectId = static_cast<std::size_t>(-1);

    void Append(const host::Ref<host::IHostRow>& buffer);

    std::string name_;
    host::Ref<host::IHostFields> fields_;
    FieldNames names_;
    /// Position of each field among the stored values of a row, or kObjectId.
    std::vector<std::size_t> slots_;
    std::size_t slotCount_ = 0;
    std::size_t rowCount_ = 0;
    ScratchCells cells_;
    host::Ref<ScratchBuffer> buffer_;  ///< The last one returned; reused if no longer in use.
};

/// A workspace whose tables live as long as they are referenced.
class ScratchWorkspace : public host::IHostWorkspace {
public:
    host::Ref<host::IHostTable> OpenTable(const std::string& name) override;
    host::Ref<host::IHostTable> CreateTable(const std::string& name,
                                            const host::Ref<host::IHostFields>& fields,
                                            const host::Ref<host::IHostIdentifier>& rowClass,
                                            const host::Ref<host::IHostIdentifier>& extensionClass,
                                            const std::string& configuration) override;
    host::Ref<host::IHostDatasetEnum> Datasets(std::int32_t type) override;

private:
    /// Shared with the datasets, which delete from it.
    using TableList = std::vector<host::Ref<ScratchTable>>;
    std::shared_ptr<TableList> tables_ = std::make_shared<TableList>();
};

class ScratchWorkspaceFactory : public host::IHostScratchWorkspaceFactory {
public:
    host::Ref<host::IHostWorkspace> CreateWorkspace() override;
};

}  // namespace desk
