#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace gis {

/// How many features were left out for one reason, and the numbers of the first few.
struct LeftOut {
    std::int64_t count = 0;
    std::vector<std::int64_t> first;

    void Add(std::int64_t feature);
    /// Adds a sentence about a layer that tells of one feature or of several, such as "feature
    /// without a name left out", with their numbers; none if there is no feature.
    void Tell(std::vector<std::string>& notes, const std::string& layer, const std::string& one,
              const std::string& many) const;
};

}  // namespace gis
