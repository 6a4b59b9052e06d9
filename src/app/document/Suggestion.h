#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

/// Returns " Did you mean "X"?" with the known word that is nearest to a misspelt one, or an empty
/// text if none is near. Case does not count.
std::string Suggestion(std::string_view misspelt, const std::vector<std::string>& known);

}  // namespace app
