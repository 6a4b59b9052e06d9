#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desk/tables/DbfSchema.h"
#include "host/StepCounts.h"
#include "host/Tables.h"

namespace desk {

/// A dBase table, read only. A cursor reads the records from the file as it moves, so the table
/// takes almost no memory. Deleted records are skipped. The identifier of a row is its record
/// number in the file, from 1, counting deleted ones. Values by field type:
///   text        String without trailing blanks
///   number      Integer if whole and in range; String if whole but not exact in a double;
///               else Double
///   date        String "YYYY-MM-DD"
///   logical     Boolean
/// Other types, and blank or faulty values, give Null; a fault is noted once per field.
class DbfTable : public host::IHostTable, public host::IHostRowCount {
public:
    /// Opens a table. Throws host::Failure with one sentence that names the file and the fault.
    explicit DbfTable(const std::string& path);

    host::Ref<host::IHostFields> Fields() const override;
    std::int32_t FindField(const std::string& name) const override {
        return schema_->names.Find(name);
    }
    host::Ref<host::IHostCursor> Search(const host::Ref<host::IHostQueryFilter>& filter,
                                        bool recycling) override;
    host::Ref<host::IHostCursor> Insert(bool useBuffering) override;
    host::Ref<host::IHostRow> CreateRowBuffer() override;

    const std::string& Path() const { return schema_->file.Path(); }
    const std::vector<DbfField>& DbfFields() const { return schema_->fields; }
    /// Returns the name of the text encoding; EncodingFrom says where it was found.
    const std::string& Encoding() const;
    const std::string& EncodingFrom() const { return schema_->encodingFrom; }
    /// Records in the file, including deleted ones.
    std::int64_t RecordCount() const { return schema_->header.recordCount; }
    std::int64_t CountRows() const override { return RecordCount(); }
    /// Number of live records that can be read. The first call reads the whole file.
    std::int64_t LiveRecords() const;
    /// Warnings about the file, one sentence each; those about values follow when they are read.
    const std::vector<std::string>& Warnings() const { return schema_->notes; }
    /// Those of the warnings that tell what may be wrong in print.
    const std::vector<std::string>& Faults() const { return schema_->faults; }
    /// The others.
    const std::vector<std::string>& Remarks() const { return schema_->remarks; }

private:
    std::shared_ptr<DbfSchema> schema_;
    mutable std::int64_t liveRecords_ = -1;
};

}  // namespace desk
