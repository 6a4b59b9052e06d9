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
///   date        String "YYYY-MM-DD"; a timestamp "YYYY-MM-DD hh:mm:ss"
///   logical     Boolean
///   other       Null, as is whatever is blank, marked as null, or faulty; a fault is noted
host::Variant ReadValue(const DbfSchema& schema, std::size_t field, std::string_view record,
                        std::int64_t recordNumber);

}  // namespace desk
