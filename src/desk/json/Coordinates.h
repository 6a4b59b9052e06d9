#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "desk/json/JsonNode.h"

namespace desk {

/// Reads a list of coordinates: inches from the sheet's lower left corner. Rows beyond the edge of
/// a sheet may lie far off: 50 columns of the longest lengths of a gazetteer. Throws for another
/// count of numbers and for those that lie farther.
template <std::size_t Size>
std::array<double, Size> Coordinates(const JsonNode& node) {
    constexpr double kFarthest = 1e6;
    if (node.Count() != Size) node.Fail(std::to_string(Size) + " numbers are expected");
    std::array<double, Size> numbers{};
    std::size_t next = 0;
    node.Each([&](const JsonNode& number) {
        numbers[next++] = number.NumberIn(-kFarthest, kFarthest, "a number of inches");
    });
    return numbers;
}

}  // namespace desk
