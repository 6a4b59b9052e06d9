#include "gis_locate/Layers.h"

#include <array>
#include <cpl_conv.h>
#include <cpl_string.h>
#include <cstdio>
#include <filesystem>
#include <gdal_priv.h>
#include <limits>
#include <map>
#include <memory>
#include <ogrsf_frmts.h>
#include <stdexcept>
#include <utility>

namespace tests {
namespace {

void Require(bool condition, const std::string& what) {
    if (!condition) throw std::runtime_error(what + ": " + CPLGetLastErrorMsg());
}

const char* DriverOf(const std::string& ending) {
    const std::map<std::string, const char*> drivers = {{".gpkg", "GPKG"},
                                                        {".sqlite", "SQLite"},
                                                        {".dbf", "ESRI Shapefile"},
                                                        {".csv", "CSV"},
                                                        {".geojson", "GeoJSON"}};
    return drivers.at(ending);
}

GDALDatasetUniquePtr OpenOrCreate(const std::string& path) {
    GDALAllRegister();
    CPLSetConfigOption("OGR_SQLITE_SYNCHRONOUS", "OFF");
    GDALDatasetUniquePtr dataset;
    const std::string ending = std::filesystem::path(path).extension();
    if (std::filesystem::exists(path)) {
        dataset.reset(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
    } else {
        CPLStringList options;
        if (ending == ".sqlite") options.SetNameValue("SPATIALITE", "YES");
        auto* const driver = GetGDALDriverManager()->GetDriverByName(DriverOf(ending));
        dataset.reset(driver->Create(path.c_str(), 0, 0, 0, GDT_Unknown, options.List()));
    }
    Require(dataset != nullptr, path);
    return dataset;
}

/// The text of a geometry cannot contain what is no number.
class NoNumbers : public OGRDefaultGeometryVisitor {
public:
    using OGRDefaultGeometryVisitor::visit;
    void visit(OGRPoint* point) override {
        if (point->getX() == -999) point->setX(std::numeric_limits<double>::quiet_NaN());
    }
};

std::unique_ptr<OGRFieldDefn> FieldOf(const std::string& text) {
    const auto colon = text.find(':');
    const std::string type = colon == std::string::npos ? "" : text.substr(colon + 1);
    const std::map<std::string, OGRFieldType> types = {
        {"integer", OFTInteger64}, {"real", OFTReal}, {"date", OFTDate}, {"logical", OFTInteger}};
    auto field = std::make_unique<OGRFieldDefn>(text.substr(0, colon).c_str(),
                                                type.empty() ? OFTString : types.at(type));
    if (type == "logical") field->SetSubType(OFSTBoolean);
    return field;
}

}  // namespace

ReferenceSystem::ReferenceSystem(int epsg) : epsg_(epsg) {
    if (epsg == 0) return;
    Require(system_.importFromEPSG(epsg) == OGRERR_NONE, std::to_string(epsg));
    system_.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
}

void WriteLayer(const std::string& path, const Layer& layer) {
    const auto dataset = OpenOrCreate(path);
    ReferenceSystem system(layer.epsg);
    const bool isPlain = path.ends_with(".dbf") || path.ends_with(".csv");
    auto* const written = dataset->CreateLayer(layer.name.c_str(), system.Get(),
                                               isPlain ? wkbNone : wkbUnknown, nullptr);
    Require(written != nullptr, path);
    for (const auto& field : layer.fields) {
        Require(written->CreateField(FieldOf(field).get()) == OGRERR_NONE, field);
    }
    dataset->StartTransaction();
    for (const auto& from : layer.features) {
        OGRFeature feature(written->GetLayerDefn());
        for (std::size_t i = 0; i < from.values.size(); ++i)
            if (from.values[i] == kNull)
                feature.SetFieldNull(static_cast<int>(i));
            else
                feature.SetField(static_cast<int>(i), from.values[i].c_str());
        OGRGeometry* geometry = nullptr;
        if (!from.wkt.empty())
            Require(OGRGeometryFactory::createFromWkt(from.wkt.c_str(), system.Get(), &geometry) ==
                        OGRERR_NONE,
                    from.wkt);
        NoNumbers visitor;
        if (geometry != nullptr) geometry->accept(&visitor);
        feature.SetGeometryDirectly(geometry);
        Require(written->CreateFeature(&feature) == OGRERR_NONE, from.wkt);
    }
    Require(dataset->CommitTransaction() == OGRERR_NONE || isPlain, path);
}

std::unique_ptr<OGRGeometry> GeometryOf(const std::string& wkt) {
    OGRGeometry* geometry = nullptr;
    Require(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &geometry) == OGRERR_NONE, wkt);
    return std::unique_ptr<OGRGeometry>(geometry);
}

std::string PointText(double x, double y) {
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%.17g %.17g", x, y);
    return text.data();
}

std::string PointsText(const std::vector<OGRRawPoint>& points) {
    std::string text = "(";
    for (const auto& point : points)
        text += (text.size() == 1 ? "" : ", ") + PointText(point.x, point.y);
    return text + ')';
}

std::string RingText(std::vector<OGRRawPoint> points) {
    points.push_back(points.front());
    return PointsText(points);
}

std::string BoxText(double left, double bottom, double right, double top) {
    return AreaText({{left, bottom}, {left, top}, {right, top}, {right, bottom}});
}

}  // namespace tests
