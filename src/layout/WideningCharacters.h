#pragma once

#include <string_view>

/// What is known of the width of a line without measuring it.
namespace gazetteer {

/// Whether adding the character to a line of its script always makes the line wider, once the line
/// has its first letter. True only for characters of one code point: in other scripts than those of
/// Europe and East Asia a letter may change the shape of the one before it and narrow the line.
bool OnlyWidens(std::string_view character);

/// Whether the character belongs to exactly one script and only widens. Others, such as digits and
/// signs, take the script of the letter before them, or at the start of a line of its first letter,
/// and perhaps another font with it.
bool IsLetterOfOneScript(std::string_view character);

/// Whether the character is a sign or a digit of ASCII, or a no-break space. A line of these alone
/// becomes wider with each.
bool IsPlainSign(std::string_view character);

}  // namespace gazetteer
