#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace desk {

class DbfNotes;
class RecordFile;
class TextDecoder;

/// How the bytes of a field are to be read.
enum class DbfKind {
    Text,
    VarText,    ///< Text whose last byte may hold its length.
    Number,     ///< Decimal text.
    Integer,    ///< Little-endian, 32 bits.
    Currency,   ///< Little-endian, 64 bits, ten-thousandths.
    Double,     ///< Little-endian.
    Integer7,   ///< Big-endian with the sign turned over: sorts as bytes.
    Double7,    ///< Big-endian; sorts as bytes: the sign turned over, or all bits below zero.
    DoubleBig,  ///< Big-endian with the sign turned over.
    Timestamp,  ///< Julian day and milliseconds of the day.
    Date,       ///< YYYYMMDD.
    Logical,
    Memo,    ///< Text in a file of its own, which is not read.
    System,  ///< Flags that the format keeps for itself.
    Unknown
};

/// One field of a dBase table.
struct DbfField {
    std::string name;
    char type = 'C';          ///< The letter in the file.
    std::int32_t length = 0;  ///< Bytes.
    std::int32_t decimals = 0;
    DbfKind kind = DbfKind::Text;
    std::int32_t offset = 0;      ///< Bytes from the start of the record, whose byte 0 is its flag.
    std::int32_t nullBit = -1;    ///< Bit in the null flags, or -1 if the field is never null.
    std::int32_t lengthBit = -1;  ///< Bit that says whether the last byte is the text's length.
};

/// Everything needed to read the records of an opened table.
struct DbfSchema {
    std::string path;
    std::shared_ptr<RecordFile> file;
    std::int64_t headerLength = 0;  ///< Bytes before the first record.
    std::int32_t recordLength = 0;  ///< Bytes, the flag included.
    std::int64_t recordCount = 0;   ///< Whole records in the file, deleted ones included.
    std::vector<DbfField> fields;
    std::int32_t nullFlagsOffset = -1;  ///< Bytes from the start of the record, or -1.
    std::int32_t nullFlagsLength = 0;
    std::string encoding;
    std::string encodingFrom;
    std::shared_ptr<const TextDecoder> decoder;
    std::shared_ptr<DbfNotes> notes;
};

/// Opens a dBase file: header, place of the records, encoding. Fails with one sentence that names
/// the file and its fault.
std::shared_ptr<const DbfSchema> OpenDbf(const std::string& path);

}  // namespace desk
