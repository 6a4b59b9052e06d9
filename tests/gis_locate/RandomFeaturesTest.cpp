#include <algorithm>

#include "gis_locate/Maps.h"

namespace tests {
namespace {

class RandomFeatures : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomFeatures, LieWhereSqlReadsThem) {
    const Maps maps(GetParam(), {4326, 25833, 0}, 700);
    const auto expected = Listings(
        maps.ReadGrid(), [&](auto layer, auto feature) { return maps.NameOf(layer, feature); });
    for (const char* squares : {"all", "longest", "first"}) {
        SCOPED_TRACE(squares);
        const auto rows = maps.program.Locate(maps.InGrid({"--squares", squares}));
        ASSERT_EQ(rows[0], (std::vector<std::string>{"Listing", "Page", "Row", "Column", "Layer"}));
        ExpectSame(expected, LocatedIn(rows), squares);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomFeatures, testing::Values(20240229U, 7U),
                         testing::PrintToStringParamName());

/// Quadrilaterals that cover the map, whose labels are numbers from 0.
std::vector<Cell> UnevenSquares(RandomMap& random) {
    constexpr int kSide = 12;
    const OGRRawPoint first = {4'480'000, 3'260'000};
    std::vector<std::vector<OGRRawPoint>> corners(kSide + 1);
    for (int row = 0; row <= kSide; ++row)
        for (int column = 0; column <= kSide; ++column)
            corners[static_cast<std::size_t>(row)].emplace_back(
                first.x + 7000 * column + random.Between(-2500, 2500),
                first.y - 7000 * row + random.Between(-2500, 2500));
    std::vector<Cell> squares;
    for (std::size_t row = 0; row < kSide; ++row)
        for (std::size_t column = 0; column < kSide; ++column)
            squares.push_back({0, static_cast<int>(row), static_cast<int>(column),
                               AreaText({corners[row][column], corners[row][column + 1],
                                         corners[row + 1][column + 1], corners[row + 1][column]})});
    return squares;
}

/// The parts of the squares on each sheet.
std::vector<Cell> CutToSheets(const std::vector<Cell>& squares,
                              const std::vector<RandomSheet>& sheets) {
    std::vector<Cell> parts;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        const auto sheet = GeometryOf(RandomMap::Cells({sheets[i]}, 1, 1)[0].wkt);
        for (auto part : squares) {
            const std::unique_ptr<OGRGeometry> common(
                sheet->Intersection(GeometryOf(part.wkt).get()));
            if (common->IsEmpty() != 0) continue;
            part.sheet = i;
            OGRWktOptions options;
            options.precision = 17;
            part.wkt = common->exportToWkt(options);
            parts.push_back(part);
        }
    }
    return parts;
}

TEST(SquaresOfOnesOwn, AreReadAsSqlReadsThem) {
    Maps maps(11, {0, 25833}, 400);
    auto squares = UnevenSquares(maps.random);
    const auto expected =
        Listings(ReadBySql(maps.program.Path(), maps.layers, CutToSheets(squares, maps.sheets)),
                 [&](auto layer, auto feature) { return maps.NameOf(layer, feature); });
    Layer layer{"squares", kSheetsSystem, {"Letter", "Number:integer"}, {}};
    std::ranges::reverse(squares);
    for (const auto& square : squares)
        layer.features.push_back({{std::string(1, static_cast<char>('A' + square.row)),
                                   std::to_string(square.column + 1)},
                                  square.wkt});
    maps.program.Write("squares.gpkg", layer);
    for (const char* which : {"all", "longest", "first"}) {
        SCOPED_TRACE(which);
        ExpectSame(expected,
                   LocatedIn(maps.program.Locate(
                       maps.Arguments({"--squares", which, "--cells", "squares.gpkg", "--cell-row",
                                       "Letter", "--cell-column", "Number"}))),
                   which);
    }
}

TEST(FeaturesOfOneName, AreApartByAField) {
    const Maps maps(5, {0, 4326}, 300);
    const auto expected = Listings(maps.ReadGrid(), [&](auto layer, auto feature) {
        return maps.Value(layer, feature, 1) + ' ' + maps.NameOf(layer, feature);
    });
    ExpectSame(expected,
               LocatedIn(maps.program.Locate(maps.InGrid({"--apart", "town", "--squares", "all"}))),
               "all");
}

TEST(NumberOfThreads, DoesNotMatter) {
    const Maps maps(17, {0, 25833}, 1500);
    for (const std::string ending : {"csv", "dbf", "gpkg"}) {
        std::string first;
        for (const char* threads : {"1", "2", "7"}) {
            auto arguments = maps.InGrid({"--threads", threads, "-o", "out." + ending, "--force"});
            arguments.insert(arguments.begin(), "locate");
            maps.program.Done(arguments);
            const std::string bytes = maps.program.Read("out." + ending);
            if (first.empty()) first = bytes;
            EXPECT_GT(bytes.size(), 20'000U);
            EXPECT_TRUE(bytes == first) << ending << ' ' << threads;
        }
    }
}

}  // namespace
}  // namespace tests
