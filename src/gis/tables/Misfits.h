#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "gis/tables/Dataset.h"
#include "gis/tables/Values.h"

namespace gis {

/// The features with a misfit, by field: a value that its field does not take. Files of SQLite, and
/// so GeoPackages, can hold the text "12a" in a column of integers, and GDAL reads it as 12.
using Misfits = std::vector<std::unordered_set<GIntBig>>;

/// Reads the records of a table that meet the condition through once, which only files of SQLite
/// need. Each field with misfits is noted.
Misfits FindMisfits(OpenLayer& opened, const std::string& where, const LayerFields& fields,
                    TableNotes& notes);

bool IsMisfit(const Misfits& misfits, std::size_t field, const OGRFeature& feature);

}  // namespace gis
