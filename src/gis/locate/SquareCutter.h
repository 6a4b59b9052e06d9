#pragma once

#include "gis/locate/Sheets.h"

namespace gis {

/// Reads a layer of squares of one's own, and cuts them to each sheet, because a square at an edge
/// may lie on two. They replace the squares of the sheets; labels are sorted as pages are. Throws
/// host::Failure if a field is missing.
void CutSquares(const SquareLayer& place, Sheets& sheets);

}  // namespace gis
