#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "desk/tables/DbfSchema.h"
#include "host/Variant.h"

namespace desk {

/// The value of one field of a record:
///   text        String without trailing blanks
///   number      Integer where it is whole and fits; String of digits where it is whole and more
///               than a double can hold exactly; else Double
///   date        String "YYYY-MM-DD"
///   logical     Boolean
/// Returns Null for other kinds and for blank or faulty values; a fault is noted once per field.
host::Variant ReadValue(DbfSchema& schema, std::size_t field, std::string_view record,
                        std::int64_t recordNumber);

}  // namespace desk
