#pragma once

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "gis_locate/RandomMap.h"

namespace tests {

/// Sheet in page order, row and column.
using Place = std::tuple<std::size_t, int, int>;
/// Length, area or number of points by place.
using Extents = std::map<Place, double>;

/// Reads by SpatiaLite which part of each feature lies in which cell: transforms, joins and
/// intersects by SQL. Returns the extents by layer and feature. Uses a file of the folder.
std::vector<std::vector<Extents>> ReadBySql(const std::string& folder,
                                            const std::vector<Layer>& layers,
                                            const std::vector<Cell>& cells);

}  // namespace tests
