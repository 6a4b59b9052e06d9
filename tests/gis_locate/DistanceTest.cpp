#include <algorithm>
#include <ctime>
#include <filesystem>
#include <numeric>

#include "gis/locate/Clusters.h"
#include "gis_locate/Maps.h"

namespace tests {
namespace {

using Numbers = std::vector<std::uint32_t>;
using Shapes = std::vector<std::unique_ptr<OGRGeometry>>;

Numbers ClustersOf(const Shapes& shapes, double distance) {
    std::vector<const OGRGeometry*> all;
    for (const auto& shape : shapes) all.push_back(shape.get());
    return gis::ClustersOf(all, distance);
}

/// Compares each shape with each other one.
Numbers SimpleClusters(const Shapes& shapes, double distance) {
    Numbers clusters(shapes.size());
    std::iota(clusters.begin(), clusters.end(), 0);
    for (std::size_t i = 0; i < shapes.size(); ++i)
        for (std::size_t j = 0; j < i; ++j) {
            const auto [less, more] = std::minmax(clusters[i], clusters[j]);
            if (less != more && shapes[i]->Distance(shapes[j].get()) <= distance)
                std::ranges::replace(clusters, std::uint32_t(more), std::uint32_t(less));
        }
    Numbers firsts = clusters;
    std::ranges::sort(firsts);
    firsts.erase(std::ranges::unique(firsts).begin(), firsts.end());
    for (auto& cluster : clusters)
        cluster =
            static_cast<std::uint32_t>(std::ranges::lower_bound(firsts, cluster) - firsts.begin());
    return clusters;
}

/// Single parts of the features of a layer, with the values of these.
Layer PartsOf(const Layer& layer) {
    Layer parts = layer;
    parts.features.clear();
    for (const auto& feature : layer.features) {
        const auto shape = GeometryOf(feature.wkt);
        if (OGR_GT_IsSubClassOf(shape->getGeometryType(), wkbGeometryCollection) == 0) {
            parts.features.push_back(feature);
            continue;
        }
        OGRWktOptions options;
        options.precision = 17;
        for (const auto* const part : *shape->toGeometryCollection())
            parts.features.push_back({feature.values, part->exportToWkt(options)});
    }
    return parts;
}

TEST(Clusters, AreThoseOfASimpleReading) {
    RandomMap random(23);
    Shapes shapes;
    for (const auto& feature : PartsOf(random.Features("f", 150, 0)).features)
        shapes.push_back(GeometryOf(feature.wkt));
    for (const double distance : {1.0, 100.0, 400.0, 1500.0, 60'000.0}) {
        const auto clusters = ClustersOf(shapes, distance);
        EXPECT_EQ(clusters, SimpleClusters(shapes, distance)) << distance;
        const auto last = std::ranges::max(clusters);
        EXPECT_TRUE(distance > 1 || last > 10) << last;
        EXPECT_TRUE(distance < 60'000 || last == 0) << last;
    }
}

TEST(Clusters, AreFoundInTimeForManyShapes) {
    RandomMap random(29);
    Shapes points;
    for (int i = 0; i < 40'000; ++i)
        points.push_back(
            std::make_unique<OGRPoint>(random.Between(0, 10'000), random.Between(0, 10'000)));
    // From each by itself to all in one; comparing all of them takes minutes.
    for (const auto& [distance, least, most] :
         {std::tuple(1e-3, 39'900U, 40'000U), {20.0, 20'000U, 39'000U}, {2000.0, 1U, 1U}}) {
        const std::clock_t start = std::clock();
        const auto clusters = 1 + std::ranges::max(ClustersOf(points, distance));
        EXPECT_LT(std::clock() - start, 20 * CLOCKS_PER_SEC) << distance;
        EXPECT_TRUE(clusters >= least && clusters <= most) << distance << ' ' << clusters;
    }
}

struct Case {
    const char* what;
    std::vector<std::string> shapes;  ///< Of features of one name.
    std::string parts;                ///< Of the listing, with their pages.
};

TEST(PartsOfOneName, AreApartWhereTheyLieFarApart) {
    const GisProgram program;
    program.Write("atlas.gpkg",
                  {"sheets",
                   3035,
                   {"page"},
                   {{{"1"}, BoxText(0, 0, 100, 100)}, {{"2"}, BoxText(200, 0, 300, 100)}}});
    const std::string ring =
        "POLYGON ((0 0, 90 0, 90 90, 0 90, 0 0), "
        "(20 20, 70 20, 70 70, 20 70, 20 20))";
    for (const auto& [what, shapes, parts] :
         {Case{"as far as the distance", {"POINT (10 10)", "POINT (13 14)"}, "1"},
          {"farther", {"POINT (10 10)", "POINT (13 14.01)"}, "1(1) 1(2)"},
          {"parts of one feature", {"MULTIPOINT (10 10, 210 10)"}, "1(1) 2(2)"},
          {"lines of one feature",
           {"MULTILINESTRING ((10 10, 20 10), (210 10, 220 10), (20 14, 30 30))"},
           "1(1) 2(2)"},
          {"areas of one feature",
           {"MULTIPOLYGON (((10 10, 20 10, 20 20, 10 10)), ((10 30, 20 30, 20 40, 10 30)))"},
           "1(1) 1(2)"},
          {"rectangles that meet around lines that do not",
           {"LINESTRING (0 0, 80 80)", "LINESTRING (10 0, 90 80)"},
           "1(1) 1(2)"},
          {"one in the other", {BoxText(0, 0, 90, 90), "LINESTRING (40 40, 50 45)"}, "1"},
          {"one in the hole of the other", {ring, "LINESTRING (40 40, 50 45)"}, "1(1) 1(2)"},
          {"near to the border of the hole", {ring, "LINESTRING (40 40, 66 45)"}, "1"},
          {"a chain, whose ends come first",
           {"POINT (10 10)", "POINT (22 10)", "POINT (14 10)", "POINT (18 10)"},
           "1"},
          {"a line over both sheets", {"LINESTRING (90 50, 210 50)"}, "1 2"},
          {"what lies on no sheet joins nothing",
           {"LINESTRING (90 50, 99 50)", "LINESTRING (101 50, 199 50)",
            "LINESTRING (201 50, 210 50)"},
           "1(1) 2(2)"},
          {"mended outlines",
           {"POLYGON ((10 10, 20 20, 20 10, 10 20, 10 10))", "POINT (15 4)", "POINT (24 15)"},
           "1(1) 1(2)"}}) {
        SCOPED_TRACE(what);
        std::filesystem::remove(program.File("places.gpkg"));
        Layer places{"places", 3035, {"name"}, {}};
        for (const auto& shape : shapes) places.features.push_back({{"x"}, shape});
        program.Write("places.gpkg", places);
        const auto rows =
            program.Locate({"places.gpkg", "--sheets", "atlas.gpkg", "--distance", "5"});
        std::string found;
        for (std::size_t i = 1; i < rows.size(); ++i)
            found += (i == 1 ? "" : " ") + rows[i][1] +
                     rows[i][0].substr(std::min<std::size_t>(rows[i][0].size(), 2));
        EXPECT_EQ(found, parts);
    }
}

TEST(PartsOfOneName, AreReadAsSqlReadsThem) {
    constexpr double kDistance = 4000;
    const Maps maps(3, {0}, 900);
    const auto parts = PartsOf(maps.layers[0]);
    const auto read =
        ReadBySql(maps.program.Path(), {parts}, RandomMap::Cells(maps.sheets, kRows, kColumns));
    std::vector<std::string> names;
    std::map<std::string, std::vector<std::size_t>> byName;
    for (std::size_t i = 0; i < read[0].size(); ++i) {
        if (read[0][i].empty()) continue;
        const auto& name = parts.features[i].values[0];
        if (byName[name].empty()) names.push_back(name);
        byName[name].push_back(i);
    }
    std::vector<ReadListing> expected;
    for (const auto& name : names) {
        Shapes shapes;
        std::vector<std::vector<Extents>> named(1);
        for (const auto part : byName[name]) {
            shapes.push_back(GeometryOf(parts.features[part].wkt));
            named[0].push_back(read[0][part]);
        }
        const auto clusters = SimpleClusters(shapes, kDistance);
        auto listings = Listings(named, [&](std::size_t, std::size_t i) {
            return std::to_string(clusters[i] + 1) + " 0 " + name;
        });
        std::ranges::sort(listings, {}, [](const auto& l) { return std::stoi(l.key); });
        expected.insert(expected.end(), listings.begin(), listings.end());
    }
    EXPECT_GT(expected.size(), names.size() * 3 / 2);
    ExpectSame(expected, LocatedIn(maps.program.Locate(maps.InGrid({"--distance", "4000"}))),
               "longest");
}

}  // namespace
}  // namespace tests
