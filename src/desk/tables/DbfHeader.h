#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace desk {

class RecordFile;

/// The header of a dBase file, as passed to shapelib. Wrong positions, lengths and counts of
/// records are corrected.
struct DbfHeader {
    std::string bytes;              ///< All bytes before the first record.
    std::int64_t recordLength = 0;  ///< Bytes, including the deletion flag.
    std::int64_t recordCount = 0;   ///< Whole records in the file, including deleted ones.
    /// The decimals byte of a text field is the high byte of its length.
    bool hasLongTexts = false;
    std::vector<std::string> warnings;
};

/// Returns whether a file begins like a dBase table.
bool IsDbf(RecordFile file);

/// Reads and checks a header. If it contradicts itself, the file size and the deletion flags are
/// used to find the records. Throws host::Failure with one sentence if the file is not a dBase
/// table, is damaged, or is of level 7.
DbfHeader ReadDbfHeader(RecordFile& file);

/// Ending of messages about tables that are not dBase III or IV.
inline constexpr const char* kSaveAsOlder =
    "; save it as dBase III or IV from a GIS or a spreadsheet.";

}  // namespace desk
