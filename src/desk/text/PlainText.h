#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace desk {

/// Characters from here on are never plain.
inline constexpr std::size_t kPlainTextLimit = 0x2200;

/// What a character is to a text that one call of the shaper can handle: a letter of one of three
/// scripts, a sign common to them, or something that needs a full layout. Each script has a bit of
/// its own beside that of all that is plain.
enum class PlainClass : unsigned char { None = 0, Common = 1, Latin = 3, Greek = 5, Cyrillic = 9 };
inline constexpr std::size_t kPlainClassEnd = 10;

using PlainClasses = std::array<PlainClass, kPlainTextLimit>;

/// Classes of all characters, whatever the font. Left out are combining marks, controls, and the
/// characters that a layout replaces or measures in its own way (soft hyphen, hyphens, tabs).
const PlainClasses& AllPlainClasses();

/// The class of the letters of a text of which all characters are plain in the given classes, those
/// of a font; Common for a text without letters. None for any other text.
PlainClass PlainScript(std::string_view text, const PlainClasses& classes);

}  // namespace desk
