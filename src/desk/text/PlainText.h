#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace desk {

/// Characters from here on are never plain.
inline constexpr std::size_t kPlainTextLimit = 0x2200;

/// Class of a character in a text that a single shaper call can handle: a letter of one of three
/// scripts, a common sign, or None for characters that need a full layout.
enum class PlainClass : unsigned char { None, Common, Latin, Greek, Cyrillic };
inline constexpr std::size_t kPlainClassCount = 5;

using PlainClasses = std::array<PlainClass, kPlainTextLimit>;

/// Returns the classes of all characters, independent of font. Combining marks, controls and
/// characters that a layout replaces or measures specially (soft hyphen, hyphens, tabs) are None.
const PlainClasses& AllPlainClasses();

/// Returns the script of a text whose characters are all plain in a font's classes; Common for a
/// text without letters, None for any other text.
PlainClass PlainScript(std::string_view text, const PlainClasses& classes);

}  // namespace desk
