#include "gis_locate/Comparison.h"
#include "gis_locate/GisProgram.h"

namespace tests {
namespace {

constexpr int kRows = 5;
constexpr int kColumns = 7;

/// Features of one map in three reference systems, and what SQL reads of them.
struct Maps {
    explicit Maps(std::uint32_t seed) : random(seed), sheets(random.Sheets(14)) {
        program.Write("atlas.gpkg", random.SheetLayer(sheets));
        for (const int epsg : {4326, 25833, 0}) {
            layers.push_back(random.Features("f" + std::to_string(epsg), 700, epsg));
            program.Write("features.gpkg", layers.back());
        }
        read = ReadBySql(program.Path(), layers, RandomMap::Cells(sheets, kRows, kColumns));
    }

    /// The features of all layers, each with its number as a constant, on the sheets.
    std::vector<std::string> Arguments(const std::vector<std::string>& more) const {
        std::vector<std::string> arguments;
        for (std::size_t i = 0; i < layers.size(); ++i)
            arguments.insert(arguments.end(), {"features.gpkg/" + layers[i].name, "--set",
                                               "Layer=" + std::to_string(i)});
        arguments.insert(arguments.end(), {"--sheets", "atlas.gpkg", "--grid",
                                           std::to_string(kRows) + 'x' + std::to_string(kColumns)});
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    }

    GisProgram program;
    RandomMap random;
    std::vector<RandomSheet> sheets;
    std::vector<Layer> layers;
    std::vector<std::vector<Extents>> read;
};

/// The key of a row is what stands behind its column, then its name.
std::vector<LocatedListing> LocatedIn(const TableRows& rows) {
    std::vector<LocatedListing> listings;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const auto& row = rows[i];
        std::string key;
        for (std::size_t field = 4; field < row.size(); ++field) key += row[field] + ' ';
        key += row[0];
        if (listings.empty() || listings.back().key != key) listings.push_back({key, {}});
        listings.back().places.push_back(
            {(std::stoul(row[1]) - 2) / 3, row[2][0] - 'A', std::stoi(row[3]) - 1});
    }
    return listings;
}

class RandomFeatures : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomFeatures, LieWhereSqlReadsThem) {
    const Maps maps(GetParam());
    const auto expected = Listings(maps.read, [&](std::size_t layer, std::size_t feature) {
        return std::to_string(layer) + ' ' + maps.layers[layer].features[feature].values[0];
    });
    for (const char* squares : {"all", "longest", "first"}) {
        SCOPED_TRACE(squares);
        const auto rows = maps.program.Locate(maps.Arguments({"--squares", squares}));
        ASSERT_EQ(rows[0], (std::vector<std::string>{"Listing", "Page", "Row", "Column", "Layer"}));
        ExpectSame(expected, LocatedIn(rows), squares);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomFeatures, testing::Values(20240229U, 7U),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace tests
