#include "gis/locate/Locator.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gis/locate/AreaSquares.h"
#include "gis/locate/Sketch.h"
#include "gis/tables/Dataset.h"
#include "host/Failure.h"

namespace gis {
namespace {

/// Boxes in which all places lie that a grid sets on the border of its sheet.
std::vector<OGREnvelope> BoxesOf(const Sheets& sheets) {
    constexpr double kMargin = 1e-9;  // In parts of a sheet, which is at least a square.
    std::vector<OGREnvelope> boxes;
    for (const auto& sheet : sheets.sheets) {
        auto& box = boxes.emplace_back(sheet.box);
        const double margin = kMargin * std::hypot(box.MaxX - box.MinX, box.MaxY - box.MinY);
        box.MinX -= margin;
        box.MinY -= margin;
        box.MaxX += margin;
        box.MaxY += margin;
    }
    return boxes;
}

bool IsFinite(const Point& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

/// An envelope leaves out what is no number.
bool IsFinite(const OGRPolygon& polygon) {
    for (const auto* const ring : polygon)
        for (const auto& point : *ring)
            if (!IsFinite(Point{point.getX(), point.getY()})) return false;
    return true;
}

/// What a part of a line or an area in a square must exceed; less is rounding.
double LeastExtent(const OwnSquare& square, int dimension) {
    constexpr double kShare = 1e-9;  // As in a grid.
    const double width = square.box.MaxX - square.box.MinX;
    const double height = square.box.MaxY - square.box.MinY;
    return dimension == 0 ? 0
                          : kShare * (dimension == 1 ? std::hypot(width, height) : width * height);
}

std::vector<Point> PointsOf(const OGRSimpleCurve& curve) {
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(curve.getNumPoints()));
    for (int i = 0; i < curve.getNumPoints(); ++i) points.push_back({curve.getX(i), curve.getY(i)});
    return points;
}

}  // namespace

std::unique_ptr<OGRCoordinateTransformation> TransformationTo(
    const Sheets& sheets, const OGRSpatialReference* reference) {
    if (reference == nullptr || !sheets.hasReference) return nullptr;
    OGRSpatialReference from(*reference);
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    if (from.IsSame(&sheets.reference) != 0) return nullptr;
    std::unique_ptr<OGRCoordinateTransformation> transformation(
        OGRCreateCoordinateTransformation(&from, &sheets.reference));
    if (!transformation)
        throw host::Failure(host::kFailureUnspecified, "TransformationTo",
                            std::string("No way leads from the reference system \"") +
                                from.GetName() + "\" to that of the sheets, \"" +
                                sheets.reference.GetName() + "\".");
    return transformation;
}

Locator::Locator(const Sheets& sheets, const OGRSpatialReference* reference, bool wantsSketch)
    : sheets_(sheets),
      transformation_(TransformationTo(sheets, reference)),
      index_(geos_, BoxesOf(sheets)),
      own_(sheets.sheets.size()) {
    if (wantsSketch) sketchDistance_ = SketchDistance(sheets);
}

LocatedGeometry Locator::Locate(OGRGeometry* geometry) {
    LocatedGeometry located;
    if (geometry == nullptr || geometry->IsEmpty() != 0) {
        located.isEmpty = true;
        return located;
    }
    const GdalMessages messages;
    located.isBroken = transformation_ && geometry->transform(transformation_.get()) != OGRERR_NONE;
    geometry->getEnvelope(&located.box);
    pieces_ = {};
    located.isBroken = located.isBroken || !TakeApart(*geometry, located);
    if (located.isBroken) return located;
    if (sketchDistance_) AddThinned(*geometry, *sketchDistance_, located.sketch);
    std::vector<SquareExtent> squares;
    for (const std::size_t number : index_.Find(located.box)) {
        const Sheet& sheet = sheets_.sheets[number];
        squares.clear();
        const bool isDone =
            sheet.grid ? AddOnGrid(*sheet.grid, squares) : AddInSquares(number, squares);
        located.isBroken = located.isBroken || !isDone;
        MergeSquares(squares);
        for (const auto& square : squares)
            located.squares.push_back({static_cast<std::uint32_t>(number), square});
    }
    return located;
}

bool Locator::TakeApart(const OGRGeometry& geometry, LocatedGeometry& located) {
    if (geometry.hasCurveGeometry() != 0) {
        const std::unique_ptr<OGRGeometry> straight(geometry.getLinearGeometry());
        return straight && TakeApart(*straight, located);
    }
    const auto type = wkbFlatten(geometry.getGeometryType());
    if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection) != 0) {
        for (const auto* const part : *geometry.toGeometryCollection())
            if (!TakeApart(*part, located)) return false;
    } else if (type == wkbPoint) {
        if (geometry.IsEmpty() != 0) return true;
        pieces_.points.push_back({geometry.toPoint()->getX(), geometry.toPoint()->getY()});
        return IsFinite(pieces_.points.back());
    } else if (OGR_GT_IsSubClassOf(type, wkbLineString) != 0) {
        pieces_.lines.push_back(PointsOf(*geometry.toLineString()));
        return std::ranges::all_of(pieces_.lines.back(),
                                   [](const Point& point) { return IsFinite(point); });
    } else {
        return TakeArea(geometry, located);
    }
    return true;
}

bool Locator::TakeArea(const OGRGeometry& polygon, LocatedGeometry& located) {
    if (polygon.IsEmpty() != 0) return true;
    if (OGR_GT_IsSubClassOf(wkbFlatten(polygon.getGeometryType()), wkbPolygon) != 0 &&
        !IsFinite(*polygon.toPolygon()))
        return false;
    auto area = geos_.Copy(polygon);
    if (!area) return false;
    if (!geos_.IsValid(area)) {
        area = geos_.Areas(geos_.MakeValid(area));
        located.isMended = true;
    }
    if (!area) return false;
    pieces_.areas.push_back(std::move(area));
    return true;
}

bool Locator::AddOnGrid(const Grid& grid, std::vector<SquareExtent>& squares) {
    for (const Point& point : pieces_.points) grid.AddPoint(grid.FromMap(point), squares);
    for (const auto& line : pieces_.lines) {
        line_.clear();
        for (const Point& point : line) line_.push_back(grid.FromMap(point));
        grid.AddLine(line_, squares);
    }
    return std::ranges::all_of(pieces_.areas, [&](const Geos::Geometry& area) {
        return AddArea(geos_, grid, area.get(), squares);
    });
}

bool Locator::AddInSquares(std::size_t sheet, std::vector<SquareExtent>& squares) {
    if (own_[sheet].empty())
        for (const auto& square : sheets_.sheets[sheet].squares)
            own_[sheet].push_back(geos_.Copy(*square.area));
    bool isDone = true;
    for (const Point& point : pieces_.points) isDone &= Divide(PointOf(point), sheet, squares);
    for (const auto& line : pieces_.lines) isDone &= Divide(LineOf(line), sheet, squares);
    for (const auto& area : pieces_.areas)
        isDone &= Divide(geos_.Own(GEOSGeom_clone_r(geos_.Context(), area.get())), sheet, squares);
    return isDone;
}

bool Locator::Divide(Geos::Geometry piece, std::size_t sheet,
                     std::vector<SquareExtent>& squares) const {
    if (!piece) return false;
    const auto dimension = [&](const Geos::Geometry& geometry) {
        return GEOSGeom_getDimensions_r(geos_.Context(), geometry.get());
    };
    const int wanted = dimension(piece);
    const auto& own = sheets_.sheets[sheet].squares;
    for (std::size_t i = 0; i < own.size(); ++i) {
        const OwnSquare& square = own[i];
        if (geos_.IsEmpty(piece)) return true;
        OGREnvelope box;
        GEOSGeom_getExtent_r(geos_.Context(), piece.get(), &box.MinX, &box.MinY, &box.MaxX,
                             &box.MaxY);
        if (square.box.Intersects(box) == 0) continue;
        const Geos::Geometry& area = own_[sheet][i];
        if (!area) return false;
        const auto inside = geos_.Intersection(piece.get(), area.get());
        if (!inside) return false;
        if (geos_.IsEmpty(inside) || dimension(inside) != wanted) continue;
        const double extent = geos_.Extent(inside.get());
        if (extent > LeastExtent(square, wanted))
            squares.push_back({square.row, square.column, extent, wanted});
        auto rest = geos_.Difference(piece.get(), area.get());
        if (!rest) return false;
        piece = std::move(rest);
    }
    return true;
}

Geos::Geometry Locator::PointOf(const Point& point) const {
    return geos_.Own(GEOSGeom_createPointFromXY_r(geos_.Context(), point.x, point.y));
}

Geos::Geometry Locator::LineOf(const std::vector<Point>& line) const {
    const OGRLineString copy = [&] {
        OGRLineString string;
        for (const Point& point : line) string.addPoint(point.x, point.y);
        return string;
    }();
    return geos_.Copy(copy);
}

}  // namespace gis
