#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace desk {

/// Characters from here on are never plain.
inline constexpr std::size_t kPlainTextLimit = 0x2200;

/// What a character is to a text that one call of the shaper can handle: a letter of one of three
/// scripts, a sign common to them, or something that needs a full layout.
enum class PlainClass : unsigned char { None, Common, Latin, Greek, Cyrillic };
inline constexpr std::size_t kPlainClassCount = 5;

using PlainClasses = std::array<PlainClass, kPlainTextLimit>;

/// Classes of all characters, whatever the font. Left out are combining marks, controls, and the
/// characters that a layout replaces or measures in its own way (soft hyphen, hyphens, tabs).
const PlainClasses& AllPlainClasses();

/// The class of the letters of a text of which all characters are plain in the given classes, those
/// of a font; Common for a text without letters. None for any other text.
PlainClass PlainScript(std::string_view text, const PlainClasses& classes);

}  // namespace desk
