#include <cmath>
#include <numbers>
#include <set>

#include "gis/locate/AreaSquares.h"
#include "gis/locate/Grid.h"
#include "gis_locate/GisProgram.h"

namespace tests {
namespace {

constexpr int kRows = 3;
constexpr int kColumns = 4;

using Points = std::vector<OGRRawPoint>;
/// Row and column, from 0.
using Squares = std::set<std::pair<int, int>>;

/// Places in squares: x to the right from 0 to 4, y downwards from 0 to 3.
struct Case {
    const char* what;
    Points points;
    Squares squares;
};

/// A grid of squares of 700 m that is turned to the left, far from the origin.
class Borders : public testing::TestWithParam<double> {
protected:
    static gis::Point OnMap(const OGRRawPoint& place) {
        const double angle = GetParam() * std::numbers::pi / 180;
        const double right = 700 * place.x;
        const double up = -700 * place.y;
        return {4'321'000.3 + right * std::cos(angle) - up * std::sin(angle),
                3'210'000.7 + right * std::sin(angle) + up * std::cos(angle)};
    }
    static std::string RingOnMap(const Points& points) {
        Points ring;
        for (const auto& point : points) ring.emplace_back(OnMap(point).x, OnMap(point).y);
        return RingText(ring);
    }
    static std::vector<gis::Point> InGrid(const Points& points) {
        std::vector<gis::Point> line;
        for (const auto& point : points) line.push_back(TheGrid().FromMap(OnMap(point)));
        return line;
    }
    static gis::Grid TheGrid() {
        const auto grid = gis::Grid::Over(
            {OnMap({0, 0}), OnMap({4, 0}), OnMap({4, 3}), OnMap({0, 3})}, kRows, kColumns);
        EXPECT_TRUE(grid);
        return grid.value_or(gis::Grid());
    }
    static Squares PlacesOf(const std::vector<gis::SquareExtent>& squares) {
        Squares places;
        for (const auto& square : squares) {
            EXPECT_GT(square.extent, 0);
            places.insert({square.row, square.column});
        }
        return places;
    }
    static Squares AreaSquares(const std::string& wkt) {
        const gis::Geos geos;
        std::vector<gis::SquareExtent> squares;
        gis::AddArea(geos, TheGrid(), geos.Copy(*GeometryOf(wkt)).get(), squares);
        return PlacesOf(squares);
    }
};

TEST_P(Borders, OfASquareAreTheUpperAndTheLeftOneForPoints) {
    for (const auto& [what, points, expected] :
         {Case{"corner of four squares", {{1, 1}}, {{1, 1}}},
          {"upper border", {{1.5, 1}}, {{1, 1}}},
          {"left border", {{2, 0.5}}, {{0, 2}}},
          {"first corner of the sheet", {{0, 0}}, {{0, 0}}},
          {"last corner of the sheet", {{4, 3}}, {{2, 3}}},
          {"corner at the right", {{4, 0}}, {{0, 3}}},
          {"corner below", {{0, 3}}, {{2, 0}}},
          {"outer border at the right, between rows", {{4, 1}}, {{1, 3}}},
          {"outer border below, between columns", {{2, 3}}, {{2, 2}}},
          {"to the right of the sheet", {{4.001, 1}}, {}},
          {"above the sheet", {{1, -0.001}}, {}}}) {
        std::vector<gis::SquareExtent> squares;
        TheGrid().AddPoint(InGrid(points)[0], squares);
        EXPECT_EQ(PlacesOf(squares), expected) << what;
    }
}

TEST_P(Borders, OfASquareAreTheUpperAndTheLeftOneForLines) {
    for (const auto& [what, points, expected] :
         {Case{"along a border between columns", {{1, 0.2}, {1, 0.8}}, {{0, 1}}},
          {"the same upwards", {{1, 0.8}, {1, 0.2}}, {{0, 1}}},
          {"along a border between rows", {{0.2, 2}, {1.8, 2}}, {{2, 0}, {2, 1}}},
          {"along the upper border of the sheet", {{0.5, 0}, {0.6, 0}}, {{0, 0}}},
          {"along the lower border of the sheet", {{0.5, 3}, {0.6, 3}}, {{2, 0}}},
          {"along the left border of the sheet", {{0, 0.5}, {0, 0.6}}, {{0, 0}}},
          {"along the right border of the sheet", {{4, -1}, {4, 1}}, {{0, 3}}},
          {"ends at a border", {{0.5, 0.5}, {1, 0.5}}, {{0, 0}}},
          {"begins at a border", {{1, 0.5}, {0.5, 0.5}}, {{0, 0}}},
          {"turns back at a border", {{0.5, 0.2}, {1, 0.5}, {0.5, 0.8}}, {{0, 0}}},
          {"through a corner", {{0.5, 0.5}, {1.5, 1.5}}, {{0, 0}, {1, 1}}},
          {"through a corner the other way", {{0.5, 1.5}, {1.5, 0.5}}, {{1, 0}, {0, 1}}},
          {"past a corner from outside", {{-1, 1}, {1, -1}}, {}},
          {"ends at the sheet", {{5, 1}, {4, 1}}, {}},
          {"of no length", {{1.5, 1.5}, {1.5, 1.5}}, {}},
          {"of one point", {{1.5, 1.5}}, {}},
          {"across the whole sheet", {{-1, 1.5}, {5, 1.5}}, {{1, 0}, {1, 1}, {1, 2}, {1, 3}}}}) {
        std::vector<gis::SquareExtent> squares;
        TheGrid().AddLine(InGrid(points), squares);
        EXPECT_EQ(PlacesOf(squares), expected) << what;
    }
}

TEST_P(Borders, OfASquareDoNotMatterToAreas) {
    Squares all;
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column) all.insert({row, column});
    const Points square = {{1, 1}, {2, 1}, {2, 2}, {1, 2}};
    for (const auto& [what, points, expected] :
         {Case{"a square", square, {{1, 1}}},
          {"two squares", {{1, 1}, {3, 1}, {3, 2}, {1, 2}}, {{1, 1}, {1, 2}}},
          {"the sheet", {{0, 0}, {4, 0}, {4, 3}, {0, 3}}, all},
          {"more than the sheet", {{-1, -1}, {5, -1}, {5, 5}, {-1, 5}}, all},
          {"beside the sheet", {{4, 0}, {5, 0}, {5, 3}, {4, 3}}, {}},
          {"at a corner of the sheet", {{-1, -1}, {0, -1}, {0, 0}, {-1, 0}}, {}},
          {"a triangle at a corner", {{0.2, 0.2}, {1, 1}, {0.2, 0.8}}, {{0, 0}}},
          {"a triangle with a side on a border", {{1, 0}, {1, 1}, {0.5, 0.5}}, {{0, 0}}},
          {"around a corner in a C",
           {{0.5, 0.5}, {1.5, 0.5}, {1.5, 1}, {1, 1}, {1, 2}, {1.5, 2}, {1.5, 2.5}, {0.5, 2.5}},
           {{0, 0}, {0, 1}, {1, 0}, {2, 0}, {2, 1}}}})
        EXPECT_EQ(AreaSquares("POLYGON (" + RingOnMap(points) + ')'), expected) << what;

    all.erase({1, 1});
    EXPECT_EQ(AreaSquares("POLYGON (" + RingOnMap({{0, 0}, {4, 0}, {4, 3}, {0, 3}}) + ", " +
                          RingOnMap(square) + ')'),
              all)
        << "a hole that is a square";
}

INSTANTIATE_TEST_SUITE_P(Angles, Borders, testing::Values(0, 17, 30.5, -36));

TEST(BorderBetweenSheets, BelongsToBoth) {
    const GisProgram program;
    program.Write("atlas.gpkg",
                  {"sheets",
                   3035,
                   {"page"},
                   {{{"2"}, BoxText(10, 0, 20, 10)}, {{"1"}, BoxText(0, 0, 10, 10)}}});
    program.Write("places.gpkg", {"places",
                                  3035,
                                  {"name"},
                                  {{{"point"}, "POINT (10 5)"},
                                   {{"line"}, "LINESTRING (10 2, 10 8)"},
                                   {{"touching line"}, "LINESTRING (5 5, 10 5)"},
                                   {{"touching area"}, BoxText(10, 2, 12, 4)},
                                   {{"rounded"}, "POINT (20.000000000001 5)"}}});
    EXPECT_EQ(program.Locate({"places.gpkg", "--sheets", "atlas.gpkg", "--grid", "2x5"}),
              (TableRows{{"Listing", "Page", "Row", "Column"},
                         {"point", "1", "B", "5"},
                         {"point", "2", "B", "1"},
                         {"line", "1", "A", "5"},
                         {"line", "2", "A", "1"},
                         {"touching line", "1", "B", "4"},
                         {"touching area", "2", "B", "1"},
                         {"rounded", "2", "B", "5"}}));
}

}  // namespace
}  // namespace tests
