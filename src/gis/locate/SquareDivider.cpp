#include "gis/locate/SquareDivider.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace gis {
namespace {

/// What a part of a line or an area in a square must exceed; less is rounding.
double LeastExtent(const OwnSquare& square, int dimension) {
    constexpr double kShare = 1e-9;  // As in a grid.
    const double width = square.box.MaxX - square.box.MinX;
    const double height = square.box.MaxY - square.box.MinY;
    return dimension == 0 ? 0
                          : kShare * (dimension == 1 ? std::hypot(width, height) : width * height);
}

}  // namespace

SquareDivider::SquareDivider(const Geos& geos, const std::vector<OwnSquare>& squares)
    : geos_(geos),
      squares_(squares),
      areas_(squares.size()),
      index_(geos, BoxesOf(squares)),
      lengths_(squares.size()) {
    for (const auto& square : squares) convex_.push_back(ConvexArea::Of(*square.area));
}

const Geos::PreparedArea& SquareDivider::AreaOf(std::size_t number) {
    auto& area = areas_[number];
    if (!area.prepared) area = geos_.PrepareCopy(*squares_[number].area);
    return area;
}

void SquareDivider::Add(std::size_t number, double extent, int dimension,
                        std::vector<SquareExtent>& extents) const {
    const OwnSquare& square = squares_[number];
    if (extent > LeastExtent(square, dimension))
        extents.push_back({square.row, square.column, extent, dimension});
}

bool SquareDivider::Divide(Geos::Geometry piece, std::vector<SquareExtent>& extents) {
    if (!piece) return false;
    auto* const context = geos_.Context();
    const int wanted = GEOSGeom_getDimensions_r(context, piece.get());
    OGREnvelope box;
    GEOSGeom_getExtent_r(context, piece.get(), &box.MinX, &box.MinY, &box.MaxX, &box.MaxY);
    for (const std::size_t number : index_.Find(box)) {
        const auto& square = AreaOf(number);
        if (!square.prepared) return false;
        if (GEOSPreparedIntersects_r(context, square.prepared.get(), piece.get()) == 0) continue;
        // Most pieces lie in one square, which is found faster than it is cut.
        if (geos_.Covers(square, piece)) {
            Add(number, geos_.Extent(piece.get()), wanted, extents);
            return true;
        }
        const auto inside = geos_.Intersection(piece.get(), square.area.get());
        if (!inside) return false;
        if (geos_.IsEmpty(inside) || GEOSGeom_getDimensions_r(context, inside.get()) != wanted)
            continue;
        Add(number, geos_.Extent(inside.get()), wanted, extents);
        piece = geos_.Difference(piece.get(), square.area.get());
        if (!piece) return false;
        if (geos_.IsEmpty(piece)) return true;
    }
    return true;
}

bool SquareDivider::DivideLine(const std::vector<Point>& line, std::vector<SquareExtent>& extents) {
    OGREnvelope box;
    for (const Point& point : line) box.Merge(point.x, point.y);
    const auto& found = index_.Find(box);
    if (!std::ranges::all_of(found, [&](auto number) { return convex_[number].has_value(); }))
        return Divide(LineOf(line), extents);
    for (std::size_t i = 1; i < line.size(); ++i) DivideSegment(line[i - 1], line[i], found);
    for (const std::size_t number : found)
        Add(number, std::exchange(lengths_[number], 0), 1, extents);
    return true;
}

void SquareDivider::DivideSegment(const Point& from, const Point& to,
                                  const std::vector<std::size_t>& squares) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    left_ = {Share()};
    for (const std::size_t number : squares) {
        if (left_.empty()) return;
        const auto& area = convex_[number];
        const auto share = area ? area->Clip(from, to) : std::nullopt;
        if (share) lengths_[number] += length * TakeOut(*share, left_);
    }
}

Geos::Geometry SquareDivider::LineOf(const std::vector<Point>& line) const {
    constexpr int kNone = 0;  // No heights, no measures.
    auto* const points = GEOSCoordSeq_copyFromBuffer_r(
        geos_.Context(), &line.front().x, static_cast<unsigned>(line.size()), kNone, kNone);
    return geos_.Own(GEOSGeom_createLineString_r(geos_.Context(), points));
}

}  // namespace gis
