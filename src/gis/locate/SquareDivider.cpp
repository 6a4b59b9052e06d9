#include "gis/locate/SquareDivider.h"

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
    : geos_(geos), squares_(squares), areas_(squares.size()), index_(geos, BoxesOf(squares)) {}

const Geos::PreparedArea& SquareDivider::AreaOf(std::size_t number) {
    auto& area = areas_[number];
    if (!area.prepared) area = geos_.PrepareCopy(*squares_[number].area);
    return area;
}

void SquareDivider::Add(std::size_t number, const GEOSGeometry* inside, int dimension,
                        std::vector<SquareExtent>& extents) const {
    const OwnSquare& square = squares_[number];
    const double extent = geos_.Extent(inside);
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
            Add(number, piece.get(), wanted, extents);
            return true;
        }
        const auto inside = geos_.Intersection(piece.get(), square.area.get());
        if (!inside) return false;
        if (geos_.IsEmpty(inside) || GEOSGeom_getDimensions_r(context, inside.get()) != wanted)
            continue;
        Add(number, inside.get(), wanted, extents);
        piece = geos_.Difference(piece.get(), square.area.get());
        if (!piece) return false;
        if (geos_.IsEmpty(piece)) return true;
    }
    return true;
}

}  // namespace gis
