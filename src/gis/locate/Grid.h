#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace gis {

struct Point {
    double x = 0;
    double y = 0;
};

/// A square of a sheet, and how much of a geometry lies in it: number of points (dimension 0),
/// length of lines (1), area of areas (2), in units that are the same for all squares of a sheet.
struct SquareExtent {
    std::int32_t row = 0;
    std::int32_t column = 0;
    double extent = 0;
    std::int32_t dimension = 0;

    /// Adds the extent of the same square. That of the higher dimension stays alone.
    void Add(const SquareExtent& more);
};

/// A grid of equal squares over a rectangle in any rotation. In its own coordinates x counts
/// columns from the left and y rows from the top, as the reader of the sheet sees it: the edge
/// whose middle lies highest is the top. A square owns its upper and left border; the last row
/// and column own their outer border, too. So each place of the sheet lies in one square.
class Grid {
public:
    /// Takes the corners of the outline, the first one repeated at the end or not. Returns nothing
    /// if they are not those of a rectangle (to a thousandth of its size).
    static std::optional<Grid> Over(const std::vector<Point>& outline, std::int32_t rows,
                                    std::int32_t columns);

    std::int32_t Rows() const { return rows_; }
    std::int32_t Columns() const { return columns_; }
    /// Coordinates of the grid. Those within 1e-9 of a border are set on it, so that rounding does
    /// not move a point across.
    Point FromMap(const Point& point) const;
    /// Lengths along the map's axes of a step from column to column, and from row to row.
    Point ColumnStep() const { return columnStep_; }
    Point RowStep() const { return rowStep_; }
    Point Origin() const { return origin_; }

    // The following take coordinates of the grid.

    /// Adds the square of a point on the sheet, with extent 1.
    void AddPoint(const Point& point, std::vector<SquareExtent>& squares) const;
    /// Adds the length, in units of the map, that the line has in each square that it runs through;
    /// squares may be added more than once. A square that it only touches is not added.
    void AddLine(const std::vector<Point>& line, std::vector<SquareExtent>& squares) const;

private:
    void AddSegment(const Point& from, const Point& to, std::vector<SquareExtent>& squares) const;
    SquareExtent SquareAt(const Point& point, double extent, std::int32_t dimension) const;

    std::int32_t rows_ = 1;
    std::int32_t columns_ = 1;
    Point origin_;  ///< Upper left corner.
    Point columnStep_;
    Point rowStep_;
};

/// Sorts squares by row and column, and adds up those that are the same.
void MergeSquares(std::vector<SquareExtent>& squares);

}  // namespace gis
