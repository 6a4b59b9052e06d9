#pragma once

#include <vector>

#include "gis/locate/Geos.h"
#include "gis/locate/Grid.h"

namespace gis {

/// Adds the area that a valid geometry of areas, in coordinates of the map, has in each square of a
/// grid. The unit is a square of the grid. Squares that it only touches are not added. Returns
/// false if GEOS fails.
bool AddArea(const Geos& geos, const Grid& grid, const GEOSGeometry* area,
             std::vector<SquareExtent>& squares);

}  // namespace gis
