#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "gis/locate/Geos.h"
#include "gis/locate/Sheets.h"
#include "gis/locate/SquareDivider.h"

namespace gis {

/// A square of a sheet in which a geometry lies.
struct SheetSquare {
    std::uint32_t sheet = 0;
    SquareExtent square;
};

/// A geometry with its parts together, or a part of it by itself.
struct LocatedPart {
    std::vector<SheetSquare> squares;    ///< By sheet, row and column; at least one.
    std::unique_ptr<OGRGeometry> shape;  ///< If parts are wanted by themselves.
};

struct LocatedGeometry {
    std::vector<LocatedPart> parts;  ///< Those that lie in a square.
    std::vector<MapLine> sketch;     ///< If it is wanted.
    bool isEmpty = false;
    bool hasNoLength = false;  ///< Lines of one place.
    bool meetsSheet = false;  ///< If it lies in no square: whether it touches a sheet all the same.
    bool isBroken = false;    ///< Could not be mended or transformed.
    bool isMended = false;
};

/// What a locator gives beside the squares.
struct LocatorWishes {
    bool sketch = false;
    bool parts = false;  ///< The parts of a geometry by themselves, with their shapes.
};

/// Finds the squares of geometries. Each thread needs its own; the sheets are shared.
class Locator {
public:
    /// The geometries are in the given reference system; null: in that of the sheets.
    Locator(const Sheets& sheets, const OGRSpatialReference* reference,
            const LocatorWishes& wishes);

    /// May change the geometry. Null counts as an empty one.
    LocatedGeometry Locate(OGRGeometry* geometry);

private:
    /// What a geometry or a part of it is made of.
    struct Pieces {
        OGREnvelope box;
        std::unique_ptr<OGRGeometry> shape;
        std::vector<Point> points;
        std::vector<std::vector<Point>> lines;
        std::vector<Geos::Geometry> areas;
    };
    /// Adds the pieces of a geometry; returns false if it is broken.
    bool TakeApart(const OGRGeometry& geometry, LocatedGeometry& located);
    bool TakeArea(const OGRGeometry& polygon, LocatedGeometry& located);
    /// Tells why a geometry lies in no square.
    void Explain(const OGRGeometry& geometry, LocatedGeometry& located);
    /// Returns where a point, line or area is to be added.
    Pieces& PiecesFor(const OGRGeometry& single);
    /// These return false if GEOS fails.
    bool AddSquares(const Pieces& pieces, std::vector<SheetSquare>& squares);
    bool AddOnGrid(const Pieces& pieces, const Grid& grid, std::vector<SquareExtent>& squares);
    bool AddInSquares(const Pieces& pieces, std::size_t sheet, std::vector<SquareExtent>& squares);
    Geos::Geometry PointOf(const Point& point) const;

    const Sheets& sheets_;
    std::unique_ptr<OGRCoordinateTransformation> transformation_;
    std::optional<double> sketchDistance_;
    Geos geos_;
    BoxIndex index_;
    std::vector<std::unique_ptr<SquareDivider>> own_;  ///< By sheet, once used.
    bool wantsParts_;
    std::vector<Pieces> pieces_;  ///< Of the geometry, or of each of its parts.
    std::vector<Point> line_;     ///< Scratch.
};

/// Returns what leads from one reference system to another; null where nothing does, because they
/// are the same or one is not known.
std::unique_ptr<OGRCoordinateTransformation> TransformationTo(const Sheets& sheets,
                                                              const OGRSpatialReference* reference);

}  // namespace gis
