#pragma once

#include <span>
#include <vector>

#include "gis/module/SourceTable.h"

namespace gis {

/// Mends a dBase table as GDAL writes it, in which numbers without a value are filled with "*", as
/// if they were too long, and logical values are the numbers 0 and 1. Numbers without a value
/// become blank, and logical fields those of dBase.
void MendDbf(std::span<unsigned char> table, const std::vector<SourceField>& fields);

}  // namespace gis
