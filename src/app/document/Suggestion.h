#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace app {

/// Returns the known word that is nearest to a misspelt one, or an empty text if none is near. Case
/// does not count. Of equally near ones that with the longer common beginning is taken.
std::string Nearest(std::string_view misspelt, const std::vector<std::string>& known);

/// Returns " Did you mean "X"?" with the nearest known word, or an empty text if none is near.
std::string Suggestion(std::string_view misspelt, const std::vector<std::string>& known);

}  // namespace app
