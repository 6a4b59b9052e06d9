#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desk/tables/DbfSchema.h"
#include "host/Tables.h"

namespace desk {

/// A dBase table, read only. Records are read from the file while a cursor moves, so that the table
/// itself takes no memory; deleted ones are passed over. The identifier of a row is its record's
/// number in the file, counted from 1 with the deleted ones. Values by kind of field:
///   text        String without trailing blanks
///   number      Integer where it is whole and fits; String of digits where it is whole and more
///               than a double can hold exactly; else Double
///   date        String "YYYY-MM-DD"
///   logical     Boolean
/// Other kinds, and blank or faulty values, give Null; a fault is noted once per field.
class DbfTable : public host::IHostTable {
public:
    /// Opens a table. Fails with one sentence that names the file and its fault.
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
    /// Name of the text encoding, and in words where it was found.
    const std::string& Encoding() const;
    const std::string& EncodingFrom() const { return schema_->encodingFrom; }
    /// Records in the file, deleted ones included.
    std::int64_t RecordCount() const { return schema_->header.recordCount; }
    /// Live records that can be read. Reads the whole file at the first call.
    std::int64_t LiveRecords() const;
    /// What is odd about the file, one sentence each. Faults of single values join once the value
    /// was read.
    const std::vector<std::string>& Warnings() const { return schema_->notes; }

private:
    std::shared_ptr<DbfSchema> schema_;
    mutable std::int64_t liveRecords_ = -1;
};

}  // namespace desk
