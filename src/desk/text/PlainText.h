#pragma once

#include <array>
#include <cstddef>
#include <hb.h>
#include <optional>
#include <string_view>

namespace desk {

/// Characters from here on are never plain.
inline constexpr std::size_t kPlainTextLimit = 0x2200;

/// What a character is to a text that one call of the shaper can handle: a letter of one of three
/// scripts, a sign common to them, or something that needs a full layout.
enum class PlainClass : unsigned char { None, Common, Latin, Greek, Cyrillic };

/// HB_SCRIPT_INVALID for None.
hb_script_t ScriptOf(PlainClass plain);

using PlainClasses = std::array<PlainClass, kPlainTextLimit>;

/// Classes of all characters, whatever the font. Left out are combining marks, controls, and the
/// characters that a layout replaces or measures in its own way (soft hyphen, hyphens, tabs).
const PlainClasses& AllPlainClasses();

/// Reads the UTF-8 character at the place and moves the place behind it. What is not UTF-8 of at
/// most three bytes gives kPlainTextLimit.
inline char32_t NextCharacter(std::string_view text, std::size_t& place) {
    const auto byte = [&](std::size_t offset) -> char32_t {
        return place + offset < text.size() ? static_cast<unsigned char>(text[place + offset]) : 0;
    };
    const auto continues = [&](std::size_t offset) { return (byte(offset) & 0xC0) == 0x80; };
    char32_t character = byte(0);
    std::size_t length = 1;
    if (character >= 0xC2 && character < 0xE0 && continues(1)) {
        character = (character & 0x1F) << 6 | (byte(1) & 0x3F);
        length = 2;
    } else if (character >= 0xE0 && character < 0xF0 && continues(1) && continues(2)) {
        character = (character & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
        length = character < 0x800 ? 1 : 3;
        if (length == 1) character = kPlainTextLimit;
    } else if (character >= 0x80) {
        character = kPlainTextLimit;
    }
    place += length;
    return character < kPlainTextLimit ? character : kPlainTextLimit;
}

/// The one script of a text of which all characters are plain in the given classes, those of a
/// font; HB_SCRIPT_COMMON for a text without letters. Nothing for any other text.
std::optional<hb_script_t> PlainScript(std::string_view text, const PlainClasses& classes);

/// Where the first letter of a plain text stands, in bytes; its length where there is none.
std::size_t FirstLetter(std::string_view text, const PlainClasses& classes);

}  // namespace desk
