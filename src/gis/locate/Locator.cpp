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

/// Within this of a sheet a place may lie on its border, but for rounding.
double MarginOf(const OGREnvelope& sheet) {
    constexpr double kMargin = 1e-9;  // In parts of a sheet, which is at least a square.
    return kMargin * std::hypot(sheet.MaxX - sheet.MinX, sheet.MaxY - sheet.MinY);
}

/// Boxes in which all places lie that a grid sets on the border of its sheet.
std::vector<OGREnvelope> BoxesOf(const Sheets& sheets) {
    std::vector<OGREnvelope> boxes;
    for (const auto& sheet : sheets.sheets) {
        auto& box = boxes.emplace_back(sheet.box);
        const double margin = MarginOf(sheet.box);
        box.MinX -= margin;
        box.MinY -= margin;
        box.MaxX += margin;
        box.MaxY += margin;
    }
    return boxes;
}

bool IsOnePlace(const std::vector<Point>& line) {
    return std::ranges::all_of(line, [&](const Point& point) {
        return point.x == line.front().x && point.y == line.front().y;
    });
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

Locator::Locator(const Sheets& sheets, const OGRSpatialReference* reference,
                 const LocatorWishes& wishes)
    : sheets_(sheets),
      transformation_(TransformationTo(sheets, reference)),
      index_(geos_, BoxesOf(sheets)),
      own_(sheets.sheets.size()),
      wantsParts_(wishes.parts) {
    if (wishes.sketch) sketchDistance_ = SketchDistance(sheets);
}

LocatedGeometry Locator::Locate(OGRGeometry* geometry) {
    LocatedGeometry located;
    if (geometry == nullptr || geometry->IsEmpty() != 0) {
        located.isEmpty = true;
        return located;
    }
    const GdalMessages messages;
    located.isBroken = transformation_ && geometry->transform(transformation_.get()) != OGRERR_NONE;
    pieces_.clear();
    located.isBroken = located.isBroken || !TakeApart(*geometry, located);
    if (located.isBroken) return located;
    if (sketchDistance_) AddThinned(*geometry, *sketchDistance_, located.sketch);
    for (auto& pieces : pieces_) {
        LocatedPart part;
        located.isBroken |= !AddSquares(pieces, part.squares);
        if (part.squares.empty()) continue;
        part.shape = std::move(pieces.shape);
        located.parts.push_back(std::move(part));
    }
    if (located.parts.empty()) Explain(*geometry, located);
    return located;
}

void Locator::Explain(const OGRGeometry& geometry, LocatedGeometry& located) {
    located.hasNoLength = std::ranges::all_of(pieces_, [](const Pieces& pieces) {
        return pieces.points.empty() && pieces.areas.empty() &&
               std::ranges::all_of(pieces.lines, IsOnePlace);
    });
    Geos::Geometry shape;
    for (const auto& pieces : pieces_)
        for (const std::size_t number : index_.Find(pieces.box)) {
            if (!shape) shape = geos_.Copy(geometry);
            const auto sheet = geos_.Copy(*sheets_.sheets[number].area);
            located.meetsSheet |= shape && sheet &&
                                  GEOSDistanceWithin_r(geos_.Context(), shape.get(), sheet.get(),
                                                       MarginOf(sheets_.sheets[number].box)) == 1;
        }
}

bool Locator::AddSquares(const Pieces& pieces, std::vector<SheetSquare>& squares) {
    bool isDone = true;
    for (const std::size_t number : index_.Find(pieces.box)) {
        const Sheet& sheet = sheets_.sheets[number];
        std::vector<SquareExtent> found;
        isDone &= sheet.grid ? AddOnGrid(pieces, *sheet.grid, found)
                             : AddInSquares(pieces, number, found);
        MergeSquares(found);
        for (const auto& square : found)
            squares.push_back({static_cast<std::uint32_t>(number), square});
    }
    return isDone;
}

Locator::Pieces& Locator::PiecesFor(const OGRGeometry& single) {
    if (pieces_.empty() || wantsParts_) pieces_.emplace_back();
    OGREnvelope box;
    single.getEnvelope(&box);
    pieces_.back().box.Merge(box);
    if (wantsParts_) pieces_.back().shape.reset(single.clone());
    return pieces_.back();
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
        auto& points = PiecesFor(geometry).points;
        points.push_back({geometry.toPoint()->getX(), geometry.toPoint()->getY()});
        return IsFinite(points.back());
    } else if (OGR_GT_IsSubClassOf(type, wkbLineString) != 0) {
        if (geometry.IsEmpty() != 0) return true;
        auto& lines = PiecesFor(geometry).lines;
        lines.push_back(PointsOf(*geometry.toLineString()));
        return std::ranges::all_of(lines.back(),
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
    bool isMended = false;
    auto area = geos_.ValidArea(polygon, isMended);
    located.isMended |= isMended;
    if (!area) return false;
    auto& pieces = PiecesFor(polygon);
    if (wantsParts_ && isMended) pieces.shape = geos_.Shape(area);
    pieces.areas.push_back(std::move(area));
    return true;
}

bool Locator::AddOnGrid(const Pieces& pieces, const Grid& grid,
                        std::vector<SquareExtent>& squares) {
    for (const Point& point : pieces.points) grid.AddPoint(grid.FromMap(point), squares);
    for (const auto& line : pieces.lines) {
        line_.clear();
        for (const Point& point : line) line_.push_back(grid.FromMap(point));
        grid.AddLine(line_, squares);
    }
    return std::ranges::all_of(pieces.areas, [&](const Geos::Geometry& area) {
        return AddArea(geos_, grid, area.get(), squares);
    });
}

bool Locator::AddInSquares(const Pieces& pieces, std::size_t sheet,
                           std::vector<SquareExtent>& squares) {
    auto& own = own_[sheet];
    if (!own) own = std::make_unique<SquareDivider>(geos_, sheets_.sheets[sheet].squares);
    bool isDone = true;
    for (const Point& point : pieces.points) isDone &= own->Divide(PointOf(point), squares);
    for (const auto& line : pieces.lines) isDone &= own->DivideLine(line, squares);
    for (const auto& area : pieces.areas) isDone &= own->Divide(geos_.Copy(area), squares);
    return isDone;
}

Geos::Geometry Locator::PointOf(const Point& point) const {
    return geos_.Own(GEOSGeom_createPointFromXY_r(geos_.Context(), point.x, point.y));
}

}  // namespace gis
