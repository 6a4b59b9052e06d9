#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// Writes a table of place listings, identical for the same count: about 1.6 pages per feature, 12
/// % repeated records, random order. Fields: Listing (C 40), Page (N 4), Row (C 2), Column (N 2).
void WriteListingTable(const std::string& path, std::size_t count);

}  // namespace bench
