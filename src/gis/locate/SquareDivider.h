#pragma once

#include <cstdint>
#include <vector>

#include "gis/locate/ConvexArea.h"
#include "gis/locate/Geos.h"
#include "gis/locate/Sheets.h"

namespace gis {

/// Divides geometries among the squares of one's own of a sheet. Each thread needs its own.
class SquareDivider {
public:
    SquareDivider(const Geos& geos, const std::vector<OwnSquare>& squares);

    /// These give the piece to the squares one after the other; what one has is not given to the
    /// next. They add the extents and return false if GEOS fails.
    bool Divide(Geos::Geometry piece, std::vector<SquareExtent>& extents);
    /// Lines are computed here where the squares are convex: GEOS takes many times as long.
    bool DivideLine(const std::vector<Point>& line, std::vector<SquareExtent>& extents);

private:
    const Geos::PreparedArea& AreaOf(std::size_t number);
    void DivideSegment(const Point& from, const Point& to, const std::vector<std::size_t>& squares);
    Geos::Geometry LineOf(const std::vector<Point>& line) const;
    void Add(std::size_t number, double extent, int dimension,
             std::vector<SquareExtent>& extents) const;

    const Geos& geos_;
    const std::vector<OwnSquare>& squares_;
    std::vector<Geos::PreparedArea> areas_;          ///< Of the squares, once used.
    std::vector<std::optional<ConvexArea>> convex_;  ///< Nothing for other squares.
    BoxIndex index_;
    std::vector<double> lengths_;  ///< Scratch: of a line by square.
    std::vector<Share> left_;      ///< Scratch: of a segment.
};

}  // namespace gis
