#pragma once

#include <string>

#include "desk/tables/DbfTable.h"

namespace desk {

/// SHA-256 of a table's records in the form that READINGS.json has hashed: each record a JSON list
/// and a line feed, ", " between values, blank text null, numbers with decimals or of 19
/// digits and more as floats, dates with slashes.
std::string HashRecords(DbfTable& table);

}  // namespace desk
