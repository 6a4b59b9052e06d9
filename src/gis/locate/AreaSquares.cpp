#include "gis/locate/AreaSquares.h"

#include <algorithm>
#include <cmath>

namespace gis {
namespace {

/// In squares; less is rounding.
constexpr double kLeastArea = 1e-9;

struct Block {
    std::int32_t row;
    std::int32_t column;
    std::int32_t rows;
    std::int32_t columns;

    bool IsSquare() const { return rows == 1 && columns == 1; }
    double Area() const { return static_cast<double>(rows) * columns; }
    Block Half(bool second) const {
        if (rows > columns)
            return second ? Block{row + rows / 2, column, rows - rows / 2, columns}
                          : Block{row, column, rows / 2, columns};
        return second ? Block{row, column + columns / 2, rows, columns - columns / 2}
                      : Block{row, column, rows, columns / 2};
    }
};

/// Halves the block until it is one square, or is covered, or has nothing of the area. Returns
/// false if GEOS fails.
bool AddBlock(const Geos& geos, const GEOSGeometry* area, const Block& block,
              std::vector<SquareExtent>& squares) {
    const auto inside =
        geos.Own(GEOSClipByRect_r(geos.Context(), area, block.column, block.row,
                                  block.column + block.columns, block.row + block.rows));
    if (!inside) return false;
    const double extent = geos.Area(inside.get());
    if (extent <= kLeastArea) return true;
    if (block.IsSquare()) {
        squares.push_back({block.row, block.column, extent, 2});
    } else if (extent > block.Area() - kLeastArea) {
        for (std::int32_t row = block.row; row < block.row + block.rows; ++row)
            for (std::int32_t column = block.column; column < block.column + block.columns;
                 ++column)
                squares.push_back({row, column, 1, 2});
    } else {
        return AddBlock(geos, inside.get(), block.Half(false), squares) &&
               AddBlock(geos, inside.get(), block.Half(true), squares);
    }
    return true;
}

int ToGrid(double* x, double* y, void* grid) {
    const Point place = static_cast<const Grid*>(grid)->FromMap({*x, *y});
    *x = place.x;
    *y = place.y;
    return 1;
}

/// The squares that a rectangle in the grid's coordinates meets.
Block Around(const Grid& grid, double left, double top, double right, double bottom) {
    const auto within = [](double place, std::int32_t end) {
        return static_cast<std::int32_t>(std::clamp<double>(place, 0, end));
    };
    Block block{within(std::floor(top), grid.Rows()), within(std::floor(left), grid.Columns()), 0,
                0};
    block.rows = within(std::ceil(bottom), grid.Rows()) - block.row;
    block.columns = within(std::ceil(right), grid.Columns()) - block.column;
    return block;
}

}  // namespace

bool AddArea(const Geos& geos, const Grid& grid, const GEOSGeometry* area,
             std::vector<SquareExtent>& squares) {
    Grid copy = grid;  // GEOS wants what it does not change as changeable.
    const auto placed = geos.Own(GEOSGeom_transformXY_r(geos.Context(), area, ToGrid, &copy));
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    if (!placed ||
        GEOSGeom_getExtent_r(geos.Context(), placed.get(), &left, &top, &right, &bottom) == 0)
        return false;
    const Block block = Around(grid, left, top, right, bottom);
    return block.rows <= 0 || block.columns <= 0 || AddBlock(geos, placed.get(), block, squares);
}

}  // namespace gis
