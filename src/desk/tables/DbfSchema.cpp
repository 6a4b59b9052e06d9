#include "desk/tables/DbfSchema.h"

#include <cstddef>
#include <string_view>

#include "desk/tables/DbfEncoding.h"
#include "desk/tables/DbfReader.h"
#include "desk/tables/TextDecoder.h"
#include "host/Failure.h"

namespace desk {
namespace {

bool IsOneOf(std::string_view types, char type) {
    return types.find(type) != std::string_view::npos;
}

/// Kinds that FoxPro and level 7 have added: numbers and times in binary, texts of varying length,
/// and the flags that tell which other fields are null. "B" of another length is a dBase picture.
bool IsForeign(const DbfField& field) {
    return IsOneOf("IOTVY+0", field.type) || (field.type == 'B' && field.length == 8);
}

DbfKind KindOf(const DbfField& field) {
    if (field.type == 'C') return DbfKind::Text;
    if (IsOneOf("NF", field.type)) return DbfKind::Number;
    if (field.type == 'D' && field.length == 8) return DbfKind::Date;
    if (field.type == 'L') return DbfKind::Logical;
    return IsOneOf("BGMPW", field.type) ? DbfKind::Memo : DbfKind::Unknown;
}

/// The fields, their names still as they stand in the file.
std::vector<DbfField> ReadFields(DBFHandle library, bool hasLongTexts) {
    std::vector<DbfField> fields;
    std::int32_t offset = 1;
    for (int i = 0; i < DBFGetFieldCount(library); ++i) {
        const char* const entry = library->pszHeader + std::ptrdiff_t{XBASE_FLDHDR_SZ} * i;
        DbfField field;
        DBFGetFieldInfo(library, i, nullptr, &field.length, &field.decimals);
        // The library's name would end at the zeros in one of two-byte characters.
        field.name.assign(entry, XBASE_FLDNAME_LEN_READ);
        field.type = DBFGetNativeFieldType(library, i);
        if (hasLongTexts && field.type == 'C')
            field.length += 256 * static_cast<unsigned char>(entry[17]);
        field.kind = KindOf(field);
        field.offset = offset;
        offset += field.length;
        fields.push_back(field);
    }
    return fields;
}

void DecodeNames(DbfSchema& schema) {
    std::vector<std::string> names;
    for (DbfField& field : schema.fields) {
        schema.decoder->DecodePadded(field.name, names.emplace_back());
        field.name = names.back();
    }
    schema.names = FieldNames(names);
}

/// The names of some fields in brackets, or empty where there is none.
template <class Wanted>
std::string NamesOf(const DbfSchema& schema, Wanted wanted) {
    std::string names;
    for (const DbfField& field : schema.fields)
        if (wanted(field)) names += (names.empty() ? " (" : ", ") + field.name;
    return names.empty() ? names : names + ")";
}

void JudgeFields(DbfSchema& schema) {
    const std::string foreign = NamesOf(schema, IsForeign);
    if (!foreign.empty())
        throw host::Failure(host::kFailureUnspecified, "DbfSchema",
                            schema.file.Path() + " has fields that only FoxPro or dBase 7 knows" +
                                foreign + kSaveAsOlder);
    const auto note = [&](DbfKind kind, const std::string& what) {
        const auto isOfKind = [&](const DbfField& field) { return field.kind == kind; };
        const std::string names = NamesOf(schema, isOfKind);
        if (!names.empty()) schema.Note(what + " are not read" + names + ".");
    };
    note(DbfKind::Memo, "memo texts and pictures");
    note(DbfKind::Unknown, "fields of unknown type");
    for (const std::string& name : schema.names.Repeated())
        schema.Note("more than one field is named " + name +
                    "; the one so written counts, else the first.");
}

}  // namespace

DbfSchema::DbfSchema(const std::string& path) : file(path), header(ReadDbfHeader(file)) {
    for (const std::string& warning : header.warnings) Note(warning);
    const DbfReader reader(*this);
    fields = ReadFields(reader.Library(), header.hasLongTexts);
    FindEncoding(*this, reader.Library());
    DecodeNames(*this);
    JudgeFields(*this);
}

void DbfSchema::Note(const std::string& fault) {
    notes.push_back(file.Path() + ": " + fault);
}

void DbfSchema::NoteValue(std::size_t field, std::int64_t record, const std::string& fault) {
    hasFaultyValueNote.resize(fields.size());
    if (hasFaultyValueNote[field]) return;
    hasFaultyValueNote[field] = true;
    Note("record " + std::to_string(record) + ", field " + fields[field].name + ": " + fault +
         ". Further ones in this field are not listed.");
}

}  // namespace desk
