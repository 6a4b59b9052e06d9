#pragma once

#include "app/tables/LocatedTable.h"

namespace app {

/// Labels of the squares; none where the sheets have no grid.
struct GridLabels {
    Labels rows;
    Labels columns;
};

/// Returns the labels of a grid in reading order, from the top and the left. Throws UsageError if
/// size and labels do not fit.
GridLabels GridOf(const LocateOptions& options);

/// Returns the job without its features. Throws UsageError for options that do not fit.
gis::LocateJob JobOf(const LocateOptions& options, const GridLabels& grid);

/// Returns a layer as the module takes it.
gis::LayerOfSource LayerAt(const std::string& path);

}  // namespace app
