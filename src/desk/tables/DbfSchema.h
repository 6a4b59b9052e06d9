#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/tables/DbfHeader.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/RecordFile.h"
#include "gis/module/SourceTable.h"

namespace desk {

class TextDecoder;

using gis::FieldKind;

/// The bytes of a date are YYYYMMDD, of a number decimal text, of a logical value a letter.
struct DbfField : gis::SourceField {
    std::int32_t offset = 0;  ///< Bytes from the start of the record; byte 0 is the deletion flag.

    std::string_view BytesIn(std::string_view record) const {
        return record.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
    }
};

/// The header, fields and text encoding of a table, with the notes about it.
struct DbfSchema {
    /// Opens a dBase file. Throws host::Failure with a sentence that names file and fault.
    explicit DbfSchema(const std::string& path);

    RecordFile file;
    gis::TableNotes notes;
    DbfHeader header;
    std::vector<DbfField> fields;
    FieldNames names;
    std::string encodingFrom;  ///< Source of the encoding, for display.
    std::shared_ptr<const TextDecoder> decoder;
};

}  // namespace desk
