#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace desk {

class RecordFile;

/// The header of a dBase file, as the library gets it: where it lies about its records, their
/// place, length and number are put right.
struct DbfHeader {
    std::string bytes;              ///< Up to the first record.
    std::int64_t recordLength = 0;  ///< Bytes, the flag of deletion included.
    std::int64_t recordCount = 0;   ///< Whole records in the file, deleted ones included.
    /// The lengths of texts have their high byte where the decimals of numbers stand.
    bool hasLongTexts = false;
    std::vector<std::string> warnings;
};

/// Reads and judges a header. Where it cannot be right, the file's size and the flags that begin
/// each record may still show the records beyond doubt. Fails with a sentence for a file that is no
/// dBase table, is damaged, or is of level 7.
DbfHeader ReadDbfHeader(RecordFile& file);

/// What to do with a table that is none of dBase III or IV.
inline constexpr const char* kSaveAsOlder =
    "; save it as dBase III or IV from a GIS or a spreadsheet.";

}  // namespace desk
