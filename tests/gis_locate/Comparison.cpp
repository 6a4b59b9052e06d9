#include "gis_locate/Comparison.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tests {
namespace {

/// Metres or square metres; less in a square is rounding.
constexpr double kRounding = 1e-3;

std::size_t SheetOf(const Place& place) {
    return std::get<0>(place);
}

void ExpectSquares(const Extents& extents, const std::vector<Place>& places,
                   const std::string& squares) {
    double largest = 0;
    for (const auto& [place, extent] : extents) largest = std::max(largest, extent);
    for (const auto& place : places)
        EXPECT_TRUE(extents.contains(place)) << testing::PrintToString(place);
    EXPECT_TRUE(squares == "all" || places.size() == 1 || largest <= kRounding) << places.size();
    for (const auto& [place, extent] : extents) {
        SCOPED_TRACE(testing::PrintToString(place) + " has " + std::to_string(extent));
        const bool isFound = std::ranges::count(places, place) == 1;
        const bool counts = extent > kRounding;
        EXPECT_TRUE(squares != "all" || !counts || isFound);
        EXPECT_TRUE(squares != "first" || !counts || places.empty() || places[0] <= place);
        EXPECT_TRUE(squares != "longest" || !isFound || extent >= largest * (1 - 1e-9) - 1e-6);
    }
}

}  // namespace

std::vector<ReadListing> Listings(const std::vector<std::vector<Extents>>& features,
                                  const KeyOf& keyOf) {
    std::vector<ReadListing> listings;
    for (std::size_t layer = 0; layer < features.size(); ++layer)
        for (std::size_t i = 0; i < features[layer].size(); ++i) {
            if (features[layer][i].empty()) continue;
            const std::string key = keyOf(layer, i);
            auto listing = std::ranges::find(listings, key, &ReadListing::key);
            if (listing == listings.end()) listing = listings.insert(listing, {key, {}});
            for (const auto& [place, extent] : features[layer][i])
                listing->extents[place] += extent;
        }
    return listings;
}

void ExpectSame(const std::vector<ReadListing>& expected,
                const std::vector<LocatedListing>& located, const std::string& squares) {
    ASSERT_EQ(located.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        SCOPED_TRACE(expected[i].key);
        ASSERT_EQ(located[i].key, expected[i].key);
        EXPECT_TRUE(std::ranges::is_sorted(located[i].places));
        std::map<std::size_t, std::pair<Extents, std::vector<Place>>> bySheet;
        for (const auto& [place, extent] : expected[i].extents)
            bySheet[SheetOf(place)].first[place] = extent;
        for (const auto& place : located[i].places) bySheet[SheetOf(place)].second.push_back(place);
        for (const auto& [sheet, both] : bySheet) ExpectSquares(both.first, both.second, squares);
    }
}

}  // namespace tests
