#include "gis_locate/SqlReading.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <stdexcept>

namespace tests {
namespace {

/// What lies in a cell, by the dimension of the feature.
std::string Query(std::size_t layer, int epsg) {
    const std::string place = epsg == 0 ? "SetSrid(geometry, 3035)" : "Transform(geometry, 3035)";
    return "SELECT id, sheet, row, col, CASE Dimension(feature)"
           " WHEN 0 THEN NumGeometries(CastToMulti(part))"
           " WHEN 1 THEN GLength(part) ELSE Area(part) END FROM ("
           "SELECT id, sheet, row, col, feature, Intersection(feature, cells.geometry) AS part"
           " FROM (SELECT ogc_fid AS id, " +
           place + " AS feature FROM features" + std::to_string(layer) +
           ") JOIN idx_cells_geometry AS box ON box.xmin <= MbrMaxX(feature) AND"
           " box.xmax >= MbrMinX(feature) AND box.ymin <= MbrMaxY(feature) AND"
           " box.ymax >= MbrMinY(feature) JOIN cells ON cells.ogc_fid = box.pkid"
           " WHERE Intersects(feature, cells.geometry))";
}

Layer LayerOf(const std::vector<Cell>& cells) {
    Layer layer{"cells", kSheetsSystem, {"sheet:integer", "row:integer", "col:integer"}, {}};
    for (const auto& cell : cells)
        layer.features.push_back(
            {{std::to_string(cell.sheet), std::to_string(cell.row), std::to_string(cell.column)},
             cell.wkt});
    return layer;
}

}  // namespace

std::vector<std::vector<Extents>> ReadBySql(const std::string& folder,
                                            const std::vector<Layer>& layers,
                                            const std::vector<Cell>& cells) {
    const std::string path = folder + "/reading.sqlite";
    VSIUnlink(path.c_str());
    WriteLayer(path, LayerOf(cells));
    std::vector<std::vector<Extents>> extents;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        Layer copy = layers[i];
        copy.name = "features" + std::to_string(i);
        WriteLayer(path, copy);
        extents.emplace_back(copy.features.size());
    }
    const GDALDatasetUniquePtr database(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    for (std::size_t i = 0; i < layers.size(); ++i) {
        auto* const rows = database->ExecuteSQL(Query(i, layers[i].epsg).c_str(), nullptr, nullptr);
        if (rows == nullptr) throw std::runtime_error(CPLGetLastErrorMsg());
        for (const auto& row : *rows) {
            const auto feature = static_cast<std::size_t>(row->GetFieldAsInteger(0)) - 1;
            extents[i][feature][{row->GetFieldAsInteger(1), row->GetFieldAsInteger(2),
                                 row->GetFieldAsInteger(3)}] = row->GetFieldAsDouble(4);
        }
        database->ReleaseResultSet(rows);
    }
    return extents;
}

}  // namespace tests
