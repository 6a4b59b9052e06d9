#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/tables/DbfHeader.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/RecordFile.h"

namespace desk {

class TextDecoder;

/// How the bytes of a field are read.
enum class DbfKind {
    Text,
    Number,   ///< Decimal text.
    Date,     ///< YYYYMMDD.
    Logical,  ///< A letter.
    Memo,     ///< In a separate file, which is not read.
    Unknown
};

struct DbfField {
    std::string name;
    char type = 'C';          ///< The type letter in the file.
    std::int32_t length = 0;  ///< Bytes.
    std::int32_t decimals = 0;
    DbfKind kind = DbfKind::Text;
    std::int32_t offset = 0;  ///< Bytes from the start of the record; byte 0 is the deletion flag.

    std::string_view BytesIn(std::string_view record) const {
        return record.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }
};

/// Everything needed to read the records of a table, and warnings about it.
struct DbfSchema {
    /// Opens a dBase file. Throws host::Failure with a sentence that names file and fault.
    explicit DbfSchema(const std::string& path);

    void Note(const std::string& fault);
    /// Notes something that changes no text.
    void Remark(const std::string& remark);
    /// Warns about a field's first faulty value only. Record numbers count from 1.
    void NoteValue(std::size_t field, std::int64_t record, const std::string& fault);

    RecordFile file;
    DbfHeader header;
    std::vector<DbfField> fields;
    FieldNames names;
    std::string encodingFrom;  ///< Source of the encoding, for display.
    std::shared_ptr<const TextDecoder> decoder;
    std::vector<std::string> notes;        ///< Warnings that begin with the file's path.
    std::vector<std::string> faults;       ///< Those of them that can change what is printed,
    std::vector<std::string> remarks;      ///< and the others.
    std::vector<bool> hasFaultyValueNote;  ///< By field.
};

}  // namespace desk
