#pragma once

#include <ogr_geometry.h>
#include <vector>

#include "gis/locate/Sheets.h"
#include "gis/module/Locate.h"

namespace gis {

/// Adds the lines of a geometry, without points that are nearer to the one before than a distance.
void AddThinned(const OGRGeometry& geometry, double distance, std::vector<MapLine>& lines);

/// Returns the distance below which a small map does not show two points apart.
double SketchDistance(const Sheets& sheets);

std::vector<SheetSketch> SketchSheets(const Sheets& sheets);

}  // namespace gis
