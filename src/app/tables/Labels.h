#pragma once

#include <string>
#include <vector>

namespace app {

/// Labels of rows or columns of a grid.
using Labels = std::vector<std::string>;

/// Parses "A..H", "1..10", or labels with commas between them; letters of the third text are left
/// out of ranges. Throws UsageError that names the option.
Labels ParseLabels(const std::string& option, const std::string& text,
                   const std::string& leftOut = {});

}  // namespace app
