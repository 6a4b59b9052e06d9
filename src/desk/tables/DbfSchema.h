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

/// How the bytes of a field are to be read.
enum class DbfKind {
    Text,
    Number,   ///< Decimal text.
    Date,     ///< YYYYMMDD.
    Logical,  ///< A letter.
    Memo,     ///< In a file of its own, which is not read.
    Unknown
};

/// One field of a dBase table.
struct DbfField {
    std::string name;
    char type = 'C';          ///< The letter in the file.
    std::int32_t length = 0;  ///< Bytes.
    std::int32_t decimals = 0;
    DbfKind kind = DbfKind::Text;
    std::int32_t offset = 0;  ///< Bytes from the start of the record, whose byte 0 is its flag.

    std::string_view BytesIn(std::string_view record) const {
        return record.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }
};

/// Everything needed to read the records of a table, and what is odd about it.
struct DbfSchema {
    /// Opens a dBase file. Fails with one sentence that names the file and its fault.
    explicit DbfSchema(const std::string& path);

    void Note(const std::string& fault);
    /// Notes a faulty value; later ones of the same field are not noted again. Record numbers
    /// count from 1.
    void NoteValue(std::size_t field, std::int64_t record, const std::string& fault);

    RecordFile file;
    DbfHeader header;
    std::vector<DbfField> fields;
    FieldNames names;
    std::string encodingFrom;  ///< In words.
    std::shared_ptr<const TextDecoder> decoder;
    std::vector<std::string> notes;        ///< Sentences that begin with the file's path.
    std::vector<bool> hasFaultyValueNote;  ///< By field.
};

}  // namespace desk
