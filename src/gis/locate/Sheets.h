#pragma once

#include <cstdint>
#include <memory>
#include <ogr_geometry.h>
#include <optional>
#include <string>
#include <vector>

#include "gis/locate/Grid.h"
#include "gis/module/Locate.h"

namespace gis {

/// A square that is a polygon. Row and column are indexes of the labels.
struct OwnSquare {
    std::int32_t row = 0;
    std::int32_t column = 0;
    std::shared_ptr<const OGRGeometry> area;
    OGREnvelope box;
};

/// A map sheet: a grid over its rectangle, or polygons, of which the first at a place owns it.
struct Sheet {
    std::string page;
    std::shared_ptr<const OGRGeometry> area;
    OGREnvelope box;
    std::optional<Grid> grid;
    std::vector<OwnSquare> squares;
};

/// All sheets in page order: numbers by value, then texts.
struct Sheets {
    std::vector<Sheet> sheets;
    OGRSpatialReference reference;
    bool hasReference = false;
    bool isInPageOrder = true;           ///< Whether the layer has them so.
    std::vector<std::string> rowLabels;  ///< Of squares of one's own.
    std::vector<std::string> columnLabels;
    std::vector<std::string> notes;
};

inline bool IsArea(const OGRGeometry* geometry) {
    return geometry != nullptr && geometry->IsEmpty() == 0 && geometry->getDimension() == 2;
}

/// Reads the sheets of a job, and its squares. Throws host::Failure if there is no sheet, a field
/// is missing, or a sheet with a grid is no rectangle.
Sheets ReadSheets(const LocateJob& job);

}  // namespace gis
