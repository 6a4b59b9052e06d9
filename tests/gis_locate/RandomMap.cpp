#include "gis_locate/RandomMap.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace tests {
namespace {

// The places of the map, in metres; inside the area of use of all its reference systems.
constexpr double kLeft = 4'500'000;
constexpr double kBottom = 3'200'000;
constexpr double kSize = 40'000;

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

OGRRawPoint Around(const OGRRawPoint& centre, double angle, double distance) {
    return {centre.x + distance * std::cos(angle), centre.y + distance * std::sin(angle)};
}

/// With all digits, which the exports of GDAL do not keep.
std::string Transformed(const std::string& wkt, OGRCoordinateTransformation* way) {
    if (way == nullptr) return wkt;
    std::string text;
    for (std::size_t at = 0; at < wkt.size();) {
        const auto digit = std::min(wkt.find_first_of("0123456789", at), wkt.size());
        text += wkt.substr(at, digit - at);
        if (digit == wkt.size()) break;
        at = std::min(wkt.find_first_of(",)", digit), wkt.size());
        const auto place = wkt.substr(digit, at - digit);
        std::size_t read = 0;
        double x = std::stod(place, &read);
        double y = std::stod(place.substr(read));
        way->Transform(1, &x, &y);
        text += PointText(x, y);
    }
    return text;
}

}  // namespace

OGRRawPoint RandomSheet::At(double x, double y) const {
    // The top is the side whose middle lies highest.
    const auto heightOfTop = [&](int quarters) {
        return (quarters % 2 == 0 ? height : width) * std::cos(Radians(angle - 90 * quarters));
    };
    const int turns = std::ranges::max({0, 1, 2, 3}, {}, heightOfTop);
    const bool isOnItsSide = turns % 2 != 0;
    const double turned = Radians(angle - 90 * turns);
    const double right = x * (isOnItsSide ? height : width);
    const double up = y * (isOnItsSide ? width : height);
    return {centre.x + right * std::cos(turned) - up * std::sin(turned),
            centre.y + right * std::sin(turned) + up * std::cos(turned)};
}

std::vector<RandomSheet> RandomMap::Sheets(int count) {
    std::vector<RandomSheet> sheets;
    for (int i = 0; i < count; ++i)
        sheets.push_back(
            {3 * i + 2, Place(), Between(2000, 15'000), Between(2000, 15'000), Between(0, 360)});
    return sheets;
}

Layer RandomMap::SheetLayer(std::vector<RandomSheet> sheets) {
    Layer layer{"sheets", kSheetsSystem, {"page:integer"}, {}};
    std::ranges::shuffle(sheets, random_);
    for (const auto& sheet : sheets) {
        Points corners;
        for (const auto& [x, y] : {std::pair{-0.5, -0.5}, {-0.5, 0.5}, {0.5, 0.5}, {0.5, -0.5}})
            corners.push_back(sheet.At(x, y));
        std::ranges::rotate(corners, corners.begin() + Whole(0, 3));
        if (Whole(0, 1) == 1) std::ranges::reverse(corners);
        layer.features.push_back({{std::to_string(sheet.page)}, AreaText(corners)});
    }
    return layer;
}

std::vector<Cell> RandomMap::Cells(const std::vector<RandomSheet>& sheets, int rows, int columns) {
    std::vector<Cell> cells;
    for (std::size_t i = 0; i < sheets.size(); ++i)
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column) {
                const auto corner = [&](int right, int down) {
                    return sheets[i].At(-0.5 + (column + right) / double(columns),
                                        0.5 - (row + down) / double(rows));
                };
                cells.push_back(
                    {i, row, column,
                     AreaText({corner(0, 0), corner(1, 0), corner(1, 1), corner(0, 1)})});
            }
    return cells;
}

Layer RandomMap::Features(const std::string& name, int count, int epsg) {
    Layer layer{name, epsg, {"name", "town"}, {}};
    ReferenceSystem from(kSheetsSystem);
    ReferenceSystem to(epsg);
    const std::unique_ptr<OGRCoordinateTransformation> way(
        epsg == 0 ? nullptr : OGRCreateCoordinateTransformation(from.Get(), to.Get()));
    for (int i = 0; i < count; ++i) {
        const int kind = Whole(0, 2);
        const std::string wkt = kind == 0   ? PointFeature()
                                : kind == 1 ? LineFeature()
                                            : AreaFeature();
        // Features of different kinds do not share a name: their extents cannot be compared.
        const std::string number = std::to_string(Whole(1, count / 10));
        layer.features.push_back({{(kind == 0   ? "point "
                                    : kind == 1 ? "line "
                                                : "area ") +
                                       number,
                                   "town " + std::to_string(Whole(1, 3))},
                                  Transformed(wkt, way.get())});
    }
    return layer;
}

OGRRawPoint RandomMap::Place() {
    return {kLeft + Between(0, kSize), kBottom + Between(0, kSize)};
}

// From much smaller than a square to larger than a sheet.
double RandomMap::Size() {
    return 10 * std::pow(10, Between(0, 3.2));
}

RandomMap::Points RandomMap::Walk() {
    Points points = {Place()};
    const double step = Size();
    for (int left = Whole(1, 12); left > 0; --left)
        points.push_back(
            Around(points.back(), Between(0, 2 * std::numbers::pi), step * Between(0.1, 1)));
    return points;
}

RandomMap::Points RandomMap::Star(const OGRRawPoint& centre, double inner, double outer) {
    Points points;
    const int corners = Whole(3, 15);
    for (int i = 0; i < corners; ++i)
        points.push_back(Around(centre, 2 * std::numbers::pi * (i + Between(0.1, 0.9)) / corners,
                                Between(inner, outer)));
    return points;
}

std::string RandomMap::Polygon(const OGRRawPoint& centre, double size) {
    std::string rings = '(' + RingText(Star(centre, size * 0.3, size));
    // A star of three corners may come nearer to its centre than these.
    if (Whole(0, 2) == 0) {
        Points hole = Star(centre, size * 0.01, size * 0.02);
        Points around;
        for (int i = 0; i < 12; ++i)
            around.push_back(Around(centre, i * std::numbers::pi / 6, size * (i % 2 + 2) / 3));
        rings = '(' + RingText(around) + ", " + RingText(hole);
    }
    return rings + ')';
}

std::string RandomMap::PointFeature() {
    if (Whole(0, 1) == 0) {
        const auto place = Place();
        return "POINT (" + PointText(place.x, place.y) + ')';
    }
    std::string text;
    for (int left = Whole(1, 6); left > 0; --left) {
        const auto place = Place();
        text += (text.empty() ? "" : ", ") + PointText(place.x, place.y);
    }
    return "MULTIPOINT (" + text + ')';
}

std::string RandomMap::LineFeature() {
    if (Whole(0, 2) > 0) return LineText(Walk());
    return "MULTILINESTRING (" + PointsText(Walk()) + ", " + PointsText(Walk()) + ')';
}

std::string RandomMap::AreaFeature() {
    const auto centre = Place();
    const double size = Size();
    const std::string first = Polygon(centre, size);
    if (Whole(0, 2) > 0) return "POLYGON " + first;
    return "MULTIPOLYGON (" + first + ", " + Polygon({centre.x + 3 * size, centre.y}, size) + ')';
}

}  // namespace tests
