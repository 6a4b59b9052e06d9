#pragma once

#include <string_view>

namespace characters {

/// Returns whether a line end between two texts parts words. It does not behind a hyphen, behind a
/// blank, which parts them already, and in scripts that are written without blanks.
bool LineEndPartsWords(std::string_view before, std::string_view after);

}  // namespace characters
