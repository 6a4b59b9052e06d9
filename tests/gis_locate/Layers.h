#pragma once

#include <memory>
#include <ogr_geometry.h>
#include <string>
#include <vector>

namespace tests {

struct LayerFeature {
    std::vector<std::string> values;  ///< By field; "\0" as the only byte: null.
    std::string wkt;                  ///< Empty: no geometry. An x of -999 is written as no number.
};

/// A layer to be written. A field may have a type behind a colon: integer, real, date, logical;
/// others are texts.
struct Layer {
    std::string name;
    int epsg = 0;  ///< 0: no reference system.
    std::vector<std::string> fields;
    std::vector<LayerFeature> features;
};

/// The value of a field that has none.
inline const std::string kNull(1, '\0');

/// Writes a layer to a new file, or adds it to one with layers. The ending tells the format: .gpkg,
/// .sqlite (with SpatiaLite's functions), or .dbf, .csv, .geojson. Throws std::runtime_error.
void WriteLayer(const std::string& path, const Layer& layer);

/// A reference system in which x is the east; null for the number 0.
struct ReferenceSystem {
    explicit ReferenceSystem(int epsg);
    OGRSpatialReference* Get() { return epsg_ == 0 ? nullptr : &system_; }

private:
    int epsg_;
    OGRSpatialReference system_;
};

std::unique_ptr<OGRGeometry> GeometryOf(const std::string& wkt);
/// Texts of geometries with all digits. A ring is closed by itself.
std::string PointText(double x, double y);
std::string PointsText(const std::vector<OGRRawPoint>& points);
std::string RingText(std::vector<OGRRawPoint> points);
inline std::string LineText(const std::vector<OGRRawPoint>& points) {
    return "LINESTRING " + PointsText(points);
}
inline std::string AreaText(const std::vector<OGRRawPoint>& ring) {
    return "POLYGON (" + RingText(ring) + ')';
}
/// A rectangle along the axes.
std::string BoxText(double left, double bottom, double right, double top);

}  // namespace tests
