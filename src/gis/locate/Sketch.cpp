#include "gis/locate/Sketch.h"

#include <algorithm>
#include <cmath>

namespace gis {
namespace {

/// Points along the longer side of the map that are told apart.
constexpr double kDetail = 1000;

MapLine Thinned(const OGRSimpleCurve& curve, double distance) {
    MapLine line;
    const int last = curve.getNumPoints() - 1;
    for (int i = 0; i <= last; ++i) {
        const MapPoint point{curve.getX(i), curve.getY(i)};
        if (i == 0 || i == last ||
            std::hypot(point.x - line.back().x, point.y - line.back().y) >= distance)
            line.push_back(point);
    }
    return line;
}

MapPoint Moved(const Point& from, const Point& columnStep, double columns, const Point& rowStep,
               double rows) {
    return {from.x + columns * columnStep.x + rows * rowStep.x,
            from.y + columns * columnStep.y + rows * rowStep.y};
}

MapLine SquareOf(const Grid& grid, std::int32_t row, std::int32_t column, std::int32_t rows,
                 std::int32_t columns) {
    const auto corner = [&](std::int32_t down, std::int32_t right) {
        return Moved(grid.Origin(), grid.ColumnStep(), column + right, grid.RowStep(), row + down);
    };
    return {corner(0, 0), corner(0, columns), corner(rows, columns), corner(rows, 0), corner(0, 0)};
}

MapLine OutlineOf(const OGRGeometry& area) {
    std::vector<MapLine> lines;
    AddThinned(area, 0, lines);
    return lines.empty() ? MapLine() : lines.front();
}

SheetSketch SketchSheet(const Sheet& sheet) {
    SheetSketch sketch;
    if (!sheet.grid) {
        const auto& box = sheet.box;
        sketch.outline = {{box.MinX, box.MinY},
                          {box.MinX, box.MaxY},
                          {box.MaxX, box.MaxY},
                          {box.MaxX, box.MinY},
                          {box.MinX, box.MinY}};
        for (const auto& square : sheet.squares)
            sketch.squares.push_back({square.row, square.column, OutlineOf(*square.area)});
        return sketch;
    }
    const Grid& grid = *sheet.grid;
    sketch.outline = SquareOf(grid, 0, 0, grid.Rows(), grid.Columns());
    for (std::int32_t row = 0; row < grid.Rows(); ++row)
        for (std::int32_t column = 0; column < grid.Columns(); ++column)
            sketch.squares.push_back({row, column, SquareOf(grid, row, column, 1, 1)});
    return sketch;
}

}  // namespace

void AddThinned(const OGRGeometry& geometry, double distance, std::vector<MapLine>& lines) {
    const auto type = wkbFlatten(geometry.getGeometryType());
    if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection) != 0) {
        for (const auto* const part : *geometry.toGeometryCollection())
            AddThinned(*part, distance, lines);
    } else if (type == wkbPoint) {
        lines.push_back({{geometry.toPoint()->getX(), geometry.toPoint()->getY()}});
    } else if (OGR_GT_IsSubClassOf(type, wkbLineString) != 0) {
        lines.push_back(Thinned(*geometry.toLineString(), distance));
    } else if (OGR_GT_IsSubClassOf(type, wkbPolygon) != 0) {
        for (const auto* const ring : *geometry.toPolygon())
            lines.push_back(Thinned(*ring, distance));
    }
}

double SketchDistance(const Sheets& sheets) {
    OGREnvelope all;
    for (const auto& sheet : sheets.sheets) all.Merge(sheet.box);
    return std::max(all.MaxX - all.MinX, all.MaxY - all.MinY) / kDetail;
}

std::vector<SheetSketch> SketchSheets(const Sheets& sheets) {
    std::vector<SheetSketch> sketches;
    for (const auto& sheet : sheets.sheets) sketches.push_back(SketchSheet(sheet));
    return sketches;
}

}  // namespace gis
