#include "desk/tables/DbfSchema.h"

#include "desk/tables/DbfEncoding.h"
#include "desk/tables/DbfExtent.h"
#include "desk/tables/DbfHeader.h"
#include "desk/tables/DbfNotes.h"
#include "desk/tables/FieldNames.h"
#include "desk/tables/RecordFile.h"
#include "desk/tables/TextDecoder.h"

namespace desk {
namespace {

void FindNullFlags(DbfSchema& schema) {
    for (const DbfField& field : schema.fields) {
        if (field.kind != DbfKind::System) continue;
        schema.nullFlagsOffset = field.offset;
        schema.nullFlagsLength = field.length;
    }
}

void DecodeNames(DbfSchema& schema) {
    for (DbfField& field : schema.fields) {
        std::string name;
        schema.decoder->Decode(field.name, name);
        field.name = name.substr(0, name.find('\0'));
    }
}

std::string NamesOf(const DbfSchema& schema, DbfKind kind) {
    std::string names;
    for (const DbfField& field : schema.fields)
        if (field.kind == kind) names += (names.empty() ? "" : ", ") + field.name;
    return names;
}

void NoteFields(const DbfSchema& schema) {
    const std::string memos = NamesOf(schema, DbfKind::Memo);
    if (!memos.empty()) schema.notes->Add("memo texts and pictures are not read (" + memos + ").");
    const std::string unknown = NamesOf(schema, DbfKind::Unknown);
    if (!unknown.empty())
        schema.notes->Add("fields of unknown type are not read (" + unknown + ").");

    std::vector<std::string> names;
    for (const DbfField& field : schema.fields) names.push_back(field.name);
    const FieldNames index(names);
    for (const std::string& name : index.Repeated())
        schema.notes->Add("more than one field is named " + name +
                          "; the one so written counts, else the first.");
}

}  // namespace

std::shared_ptr<const DbfSchema> OpenDbf(const std::string& path) {
    auto schema = std::make_shared<DbfSchema>();
    schema->path = path;
    schema->file = std::make_shared<RecordFile>(path);
    schema->notes = std::make_shared<DbfNotes>(path);
    const DbfHeader header = ReadDbfHeader(*schema->file);
    const DbfExtent extent = FindRecords(*schema->file, header);
    schema->headerLength = extent.start;
    schema->recordLength = static_cast<std::int32_t>(extent.recordLength);
    schema->recordCount = extent.recordCount;
    schema->fields = header.list.fields;
    for (const std::string& warning : extent.warnings) schema->notes->Add(warning);
    FindNullFlags(*schema);
    FindEncoding(schema, header);
    DecodeNames(*schema);
    NoteFields(*schema);
    return schema;
}

}  // namespace desk
