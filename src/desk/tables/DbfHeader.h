#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/tables/DbfSchema.h"

namespace desk {

class RecordFile;

/// A field list as it was found, names still in the file's own bytes.
struct DbfFieldList {
    std::vector<DbfField> fields;
    std::int64_t end = 0;  ///< Offset behind the list and its terminator.
    bool terminated = false;
    std::int64_t recordLength = 1;  ///< Bytes that the flag and the fields take.
};

/// What the header of a dBase file says, true or not.
struct DbfHeader {
    std::uint8_t version = 0;
    std::uint8_t month = 0;  ///< Of the last change; some writers leave it 0.
    std::uint8_t day = 0;
    std::int64_t recordCount = 0;
    std::int64_t headerLength = 0;
    std::int64_t recordLength = 0;
    std::uint8_t languageDriver = 0;
    std::string driverName;  ///< Level 7 names its language driver in words.
    DbfFieldList list;

    bool IsLevel7() const { return (version & 0x07) == 4; }
    /// Whether version and date are those of a dBase file at all.
    bool IsPlausible() const;
    bool IsFoxPro() const { return version >= 0x30 && version <= 0x32; }
};

/// Reads the header and its field list. Fails with a sentence for a file that is empty, ends within
/// its header, or is no dBase file.
DbfHeader ReadDbfHeader(const RecordFile& file);

}  // namespace desk
