#pragma once

#include <string_view>

/// What is known of the width of a line without measuring it.
namespace gazetteer {

/// Whether a character only ever widens a line of its kind that it joins, from the line's first
/// letter of one script on. Only characters of one code point do: in other scripts than those of
/// Europe and East Asia a letter may change the shape of the one before it and narrow the line.
bool OnlyWidens(std::string_view character);

/// Whether it belongs to one script and only widens. What belongs to all scripts takes that of the
/// letter before it, or at the start of a line of the first letter, and with it perhaps another
/// font.
bool IsLetterOfOneScript(std::string_view character);

/// Whether it is a sign or a digit of ASCII, or a no-break space. They widen a line of their kind
/// before its first letter.
bool IsPlainSign(std::string_view character);

}  // namespace gazetteer
