#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace app {

/// Labels of rows or columns of a grid.
using Labels = std::vector<std::string>;

/// Parses "A..H", "1..10", or labels with commas between them; letters of the third text are left
/// out of ranges. Throws UsageError that names the option.
Labels ParseLabels(const std::string& option, const std::string& text,
                   const std::string& leftOut = {});

/// Returns the labels, as ParseLabels takes them, of rows or columns that are given none: letters
/// where wanted and as far as they suffice, else numbers from 1. Empty for a count of 0.
std::string DefaultLabels(std::int32_t count, bool areLetters, const std::string& leftOut = {});

}  // namespace app
