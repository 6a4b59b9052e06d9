#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/tables/DbfHeader.h"

namespace desk {

/// Where the records stand.
struct DbfExtent {
    std::int64_t start = 0;         ///< Offset of the first record.
    std::int64_t recordLength = 0;  ///< Bytes.
    std::int64_t recordCount = 0;   ///< Whole records that are in the file.
    std::vector<std::string> warnings;
};

/// Finds the records. Where the header cannot be right, the file's size and the flags that begin
/// each record may still show them beyond doubt; that is told by a warning. Fails with a sentence
/// where they do not.
DbfExtent FindRecords(const RecordFile& file, const DbfHeader& header);

}  // namespace desk
