#pragma once

#include <cstddef>
#include <string_view>

namespace characters {

/// Returns whether a line end between two texts parts words. It does not behind a hyphen, behind a
/// blank, which parts them already, and in scripts that are written without blanks.
bool LineEndPartsWords(std::string_view before, std::string_view after);

/// Returns the length of the first letter of a text that has several letters, all written to the
/// left, without marks; else the length of the text.
std::size_t FirstToTheLeft(std::string_view text);

/// Returns whether a text has a character of the private use areas, U+E000 to U+F8FF and planes 15
/// and 16.
bool HasPrivateUse(std::string_view text);

}  // namespace characters
