#include "desk/tables/DbfTable.h"

#include <utility>

#include "desk/tables/DbfReader.h"
#include "desk/tables/DbfValues.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/TextDecoder.h"
#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void FailReadOnly(const DbfSchema& schema) {
    throw host::Failure(host::kFailureUnspecified, "DbfTable",
                        schema.file.Path() + " is a dBase table, which is only read here.");
}

class DbfRow : public host::IHostRow {
public:
    explicit DbfRow(std::shared_ptr<DbfSchema> schema) : schema_(std::move(schema)) {}

    void Take(const DbfReader& reader) {
        record_.assign(reader.Record());
        number_ = reader.Number();
    }

    host::Variant Value(std::int32_t index) const override {
        if (index < 0 || static_cast<std::size_t>(index) >= schema_->fields.size())
            throw host::Failure(
                host::kFailureNotFound, "DbfTable",
                schema_->file.Path() + " has no field number " + std::to_string(index) + ".");
        return ReadValue(*schema_, static_cast<std::size_t>(index), record_, number_);
    }
    void SetValue(std::int32_t, host::Variant) override { FailReadOnly(*schema_); }
    std::int32_t OID() const override { return number_; }

private:
    std::shared_ptr<DbfSchema> schema_;
    std::string record_;
    std::int32_t number_ = 0;
};

class DbfCursor : public host::IHostCursor {
public:
    DbfCursor(const std::shared_ptr<DbfSchema>& schema, bool recycling)
        : schema_(schema), reader_(*schema), recycling_(recycling) {}

    host::Ref<host::IHostRow> NextRow() override {
        if (!reader_.Next()) return nullptr;
        if (!row_ || !recycling_) row_ = std::make_shared<DbfRow>(schema_);
        row_->Take(reader_);
        return row_;
    }
    void InsertRow(const host::Ref<host::IHostRow>&) override { FailReadOnly(*schema_); }
    void Flush() override {}

private:
    std::shared_ptr<DbfSchema> schema_;
    DbfReader reader_;
    bool recycling_;
    host::Ref<DbfRow> row_;
};

std::int32_t HostType(DbfKind kind) {
    switch (kind) {
        case DbfKind::Text:
            return host::kFieldTypeText;
        case DbfKind::Number:
            return kFieldTypeNumber;
        case DbfKind::Date:
            return kFieldTypeDate;
        case DbfKind::Logical:
            return kFieldTypeLogical;
        case DbfKind::Memo:
        case DbfKind::Unknown:
            break;
    }
    return kFieldTypeOther;
}

}  // namespace

DbfTable::DbfTable(const std::string& path) : schema_(std::make_shared<DbfSchema>(path)) {}

host::Ref<host::IHostFields> DbfTable::Fields() const {
    auto fields = std::make_shared<desk::Fields>();
    fields->SetFieldCount(static_cast<std::int32_t>(schema_->fields.size()));
    std::int32_t index = 0;
    for (const DbfField& field : schema_->fields)
        fields->SetField(index++,
                         std::make_shared<Field>(field.name, HostType(field.kind), field.length));
    return fields;
}

std::int32_t DbfTable::FindField(const std::string& name) const {
    return schema_->names.Find(name);
}

host::Ref<host::IHostCursor> DbfTable::Search(const host::Ref<host::IHostQueryFilter>& filter,
                                              bool recycling) {
    RequireEveryRow(filter);
    return std::make_shared<DbfCursor>(schema_, recycling);
}

host::Ref<host::IHostCursor> DbfTable::Insert(bool) {
    FailReadOnly(*schema_);
}

host::Ref<host::IHostRow> DbfTable::CreateRowBuffer() {
    FailReadOnly(*schema_);
}

std::int64_t DbfTable::LiveRecords() const {
    if (liveRecords_ >= 0) return liveRecords_;
    std::int64_t count = 0;
    for (DbfReader reader(*schema_); reader.Next();) ++count;
    return liveRecords_ = count;
}

const std::string& DbfTable::Encoding() const {
    return schema_->decoder->Name();
}

}  // namespace desk
