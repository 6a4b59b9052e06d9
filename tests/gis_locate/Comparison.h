#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "gis_locate/SqlReading.h"

namespace tests {

/// A listing with its extents, or with the places that a table gives for it.
struct ReadListing {
    std::string key;
    Extents extents;
};
struct LocatedListing {
    std::string key;
    std::vector<Place> places;
};

/// Puts the features that lie in a square together by a text that layer and number give, in the
/// order in which the listings first appear.
using KeyOf = std::function<std::string(std::size_t layer, std::size_t feature)>;
std::vector<ReadListing> Listings(const std::vector<std::vector<Extents>>& features,
                                  const KeyOf& keyOf);

/// Expects the same listings in the same order, and the squares "all", "longest" or "first" of
/// each sheet in the order of the places.
void ExpectSame(const std::vector<ReadListing>& expected,
                const std::vector<LocatedListing>& located, const std::string& squares);

}  // namespace tests
