#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "desk/tables/DbfSchema.h"
#include "gis/module/SourceTable.h"

namespace desk {

/// A dBase table. A cursor reads the records from the file as it moves, so the table takes almost
/// no memory. Deleted records are skipped. The identifier of a row is its record number in the
/// file, from 1, counting deleted ones.
class DbfTable : public gis::SourceTable {
public:
    /// Opens a table. Throws host::Failure with one sentence that names the file and the fault.
    explicit DbfTable(const std::string& path);

    host::Ref<host::IHostFields> Fields() const override;
    std::int32_t FindField(const std::string& name) const override {
        return schema_->names.Find(name);
    }
    host::Ref<host::IHostCursor> Search(const host::Ref<host::IHostQueryFilter>& filter,
                                        bool recycling) override;

    std::vector<gis::SourceField> SourceFields() const override;
    std::string Encoding() const override;
    std::string EncodingFrom() const override { return schema_->encodingFrom; }
    /// Records in the file, including deleted ones.
    std::int64_t CountRows() const override { return schema_->header.recordCount; }
    std::int64_t LiveRecords() const override;
    const gis::TableNotes& Notes() const override { return schema_->notes; }

private:
    std::shared_ptr<DbfSchema> schema_;
    mutable std::int64_t liveRecords_ = -1;
};

}  // namespace desk
