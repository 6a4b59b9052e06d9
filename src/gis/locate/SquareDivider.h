#pragma once

#include <cstdint>
#include <vector>

#include "gis/locate/Geos.h"
#include "gis/locate/Sheets.h"

namespace gis {

/// Divides geometries among the squares of one's own of a sheet. Each thread needs its own.
class SquareDivider {
public:
    SquareDivider(const Geos& geos, const std::vector<OwnSquare>& squares);

    /// Gives the piece to the squares one after the other; what one has is not given to the next.
    /// Adds the extents. Returns false if GEOS fails.
    bool Divide(Geos::Geometry piece, std::vector<SquareExtent>& extents);

private:
    const Geos::PreparedArea& AreaOf(std::size_t number);
    void Add(std::size_t number, const GEOSGeometry* inside, int dimension,
             std::vector<SquareExtent>& extents) const;

    const Geos& geos_;
    const std::vector<OwnSquare>& squares_;
    std::vector<Geos::PreparedArea> areas_;  ///< Of the squares, once used.
    BoxIndex index_;
};

}  // namespace gis
