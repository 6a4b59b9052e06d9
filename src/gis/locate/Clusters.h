#pragma once

#include <cstdint>
#include <ogr_geometry.h>
#include <vector>

namespace gis {

/// Returns for each shape the number of its cluster, from 0 in the order of their first shapes. Two
/// shapes are in one cluster if shapes lead from one to the other, each at most the distance from
/// the next. No shape is empty or a collection. Takes time in proportion to n log n as long as few
/// rectangles around shapes are near where the shapes are not.
std::vector<std::uint32_t> ClustersOf(const std::vector<const OGRGeometry*>& shapes,
                                      double distance);

}  // namespace gis
