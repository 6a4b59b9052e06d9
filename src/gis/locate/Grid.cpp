#include "gis/locate/Grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <tuple>

namespace gis {
namespace {

/// Relative to the rectangle's size. Corners are often rounded, for example to decimetres.
constexpr double kRectangleTolerance = 1e-3;
/// In squares. Coordinates of a map have some 16 digits, so that rounding stays far below.
constexpr double kOnBorder = 1e-9;

Point operator-(const Point& one, const Point& other) {
    return {one.x - other.x, one.y - other.y};
}
Point operator*(double factor, const Point& point) {
    return {factor * point.x, factor * point.y};
}
double Dot(const Point& one, const Point& other) {
    return one.x * other.x + one.y * other.y;
}
double Cross(const Point& one, const Point& other) {
    return one.x * other.y - one.y * other.x;
}
double Length(const Point& point) {
    return std::hypot(point.x, point.y);
}

Point Between(const Point& from, const Point& to, double share) {
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
}

/// Leaves out repeated points and those on a straight edge.
std::vector<Point> Corners(std::vector<Point> outline) {
    if (outline.size() > 1 && Length(outline.front() - outline.back()) == 0) outline.pop_back();
    std::vector<Point> corners;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point before = corners.empty() ? outline.back() : corners.back();
        const Point in = outline[i] - before;
        const Point out = outline[(i + 1) % outline.size()] - outline[i];
        if (std::abs(Cross(in, out)) > kRectangleTolerance * Length(in) * Length(out))
            corners.push_back(outline[i]);
    }
    return corners;
}

bool IsRectangle(const std::vector<Point>& corners) {
    if (corners.size() != 4) return false;
    const Point across = corners[1] - corners[0];
    const Point along = corners[2] - corners[1];
    const Point opposite = corners[2] - corners[3];
    const double size = Length(corners[2] - corners[0]);
    return Length(across - opposite) <= kRectangleTolerance * size &&
           std::abs(Dot(across, along)) <= kRectangleTolerance * size * size;
}

double OntoBorder(double place) {
    const double border = std::round(place);
    return std::abs(place - border) < kOnBorder ? border : place;
}

/// Narrows the range of shares in which a coordinate lies between 0 and an end.
void Clip(double from, double to, double end, double& first, double& last) {
    if (from == to) {
        if (from < 0 || from > end) last = first - 1;
        return;
    }
    const double atStart = -from / (to - from);
    const double atEnd = (end - from) / (to - from);
    first = std::max(first, std::min(atStart, atEnd));
    last = std::min(last, std::max(atStart, atEnd));
}

/// Adds the shares at which a coordinate crosses a border between two shares.
void AddCrossings(double from, double to, double first, double last, std::vector<double>& shares) {
    if (from == to) return;
    const double one = from + first * (to - from);
    const double other = from + last * (to - from);
    for (double border = std::floor(std::min(one, other)) + 1; border < std::max(one, other);
         ++border)
        shares.push_back((border - from) / (to - from));
}

}  // namespace

std::optional<Grid> Grid::Over(const std::vector<Point>& outline, std::int32_t rows,
                               std::int32_t columns) {
    const auto corners = Corners(outline);
    if (!IsRectangle(corners)) return std::nullopt;
    Point right = corners[1] - corners[0];
    Point down = corners[2] - corners[1];
    // Of equal ones, as in a square on its corner, the first.
    if (std::abs(right.y) > std::abs(down.y) * (1 + kRectangleTolerance)) std::swap(right, down);
    if (down.y > 0) down = -1 * down;
    if (Cross(right, down) > 0) right = -1 * right;
    Grid grid;
    grid.rows_ = rows;
    grid.columns_ = columns;
    grid.origin_ = Between(corners[0], corners[2], 0.5) - 0.5 * right - 0.5 * down;
    grid.columnStep_ = 1.0 / columns * right;
    grid.rowStep_ = 1.0 / rows * down;
    return grid;
}

Point Grid::FromMap(const Point& point) const {
    const Point offset = point - origin_;
    return {OntoBorder(Dot(offset, columnStep_) / Dot(columnStep_, columnStep_)),
            OntoBorder(Dot(offset, rowStep_) / Dot(rowStep_, rowStep_))};
}

SquareExtent Grid::SquareAt(const Point& point, double extent, std::int32_t dimension) const {
    return {std::clamp(static_cast<std::int32_t>(std::floor(point.y)), 0, rows_ - 1),
            std::clamp(static_cast<std::int32_t>(std::floor(point.x)), 0, columns_ - 1), extent,
            dimension};
}

void Grid::AddPoint(const Point& point, std::vector<SquareExtent>& squares) const {
    if (point.x >= 0 && point.x <= columns_ && point.y >= 0 && point.y <= rows_)
        squares.push_back(SquareAt(point, 1, 0));
}

void Grid::AddLine(const std::vector<Point>& line, std::vector<SquareExtent>& squares) const {
    for (std::size_t i = 1; i < line.size(); ++i) AddSegment(line[i - 1], line[i], squares);
}

void Grid::AddSegment(const Point& from, const Point& to,
                      std::vector<SquareExtent>& squares) const {
    double first = 0;
    double last = 1;
    Clip(from.x, to.x, columns_, first, last);
    Clip(from.y, to.y, rows_, first, last);
    if (!(first < last)) return;
    std::vector<double> shares = {first, last};
    AddCrossings(from.x, to.x, first, last, shares);
    AddCrossings(from.y, to.y, first, last, shares);
    std::ranges::sort(shares);
    const Point step = to - from;
    const double length = std::hypot(step.x * Length(columnStep_), step.y * Length(rowStep_));
    const double squareSize = std::min(Length(columnStep_), Length(rowStep_));
    for (std::size_t i = 1; i < shares.size(); ++i) {
        const double extent = (shares[i] - shares[i - 1]) * length;
        if (extent > kOnBorder * squareSize)
            squares.push_back(
                SquareAt(Between(from, to, (shares[i - 1] + shares[i]) / 2), extent, 1));
    }
}

void SquareExtent::Add(const SquareExtent& more) {
    if (more.dimension > dimension)
        *this = more;
    else if (more.dimension == dimension)
        extent += more.extent;
}

void MergeSquares(std::vector<SquareExtent>& squares) {
    std::ranges::sort(squares, {},
                      [](const auto& square) { return std::tuple(square.row, square.column); });
    std::size_t kept = 0;
    for (std::size_t i = 1; i < squares.size(); ++i)
        if (squares[i].row == squares[kept].row && squares[i].column == squares[kept].column)
            squares[kept].Add(squares[i]);
        else
            squares[++kept] = squares[i];
    if (!squares.empty()) squares.resize(kept + 1);
}

}  // namespace gis
