#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "gis/locate/Geos.h"
#include "gis/locate/Sheets.h"

namespace gis {

/// A square of a sheet in which a geometry lies.
struct SheetSquare {
    std::uint32_t sheet = 0;
    SquareExtent square;
};

struct LocatedGeometry {
    std::vector<SheetSquare> squares;  ///< By sheet, row and column.
    std::vector<MapLine> sketch;       ///< If it is wanted.
    OGREnvelope box;
    bool isEmpty = false;
    bool isBroken = false;  ///< Could not be mended or transformed.
    bool isMended = false;
};

/// Finds the squares of geometries. Each thread needs its own; the sheets are shared.
class Locator {
public:
    /// The geometries are in the given reference system; null: in that of the sheets.
    Locator(const Sheets& sheets, const OGRSpatialReference* reference, bool wantsSketch);

    /// May change the geometry. Null counts as an empty one.
    LocatedGeometry Locate(OGRGeometry* geometry);

private:
    /// What a geometry is made of.
    struct Pieces {
        std::vector<Point> points;
        std::vector<std::vector<Point>> lines;
        std::vector<Geos::Geometry> areas;
    };
    /// Adds the pieces of a geometry; returns false if it is broken.
    bool TakeApart(const OGRGeometry& geometry, LocatedGeometry& located);
    bool TakeArea(const OGRGeometry& polygon, LocatedGeometry& located);
    bool AddOnGrid(const Grid& grid, std::vector<SquareExtent>& squares);
    /// These two return false if GEOS fails.
    bool AddInSquares(std::size_t sheet, std::vector<SquareExtent>& squares);
    /// Gives the piece to the squares one after the other; what one has is not given to the next.
    bool Divide(Geos::Geometry piece, std::size_t sheet, std::vector<SquareExtent>& squares) const;
    Geos::Geometry PointOf(const Point& point) const;
    Geos::Geometry LineOf(const std::vector<Point>& line) const;

    const Sheets& sheets_;
    std::unique_ptr<OGRCoordinateTransformation> transformation_;
    std::optional<double> sketchDistance_;
    Geos geos_;
    BoxIndex index_;
    std::vector<std::vector<Geos::Geometry>> own_;  ///< Squares of one's own, by sheet, once used.
    Pieces pieces_;
    std::vector<Point> line_;  ///< Scratch.
};

/// Returns what leads from one reference system to another; null where nothing does, because they
/// are the same or one is not known.
std::unique_ptr<OGRCoordinateTransformation> TransformationTo(const Sheets& sheets,
                                                              const OGRSpatialReference* reference);

}  // namespace gis
