#pragma once

#include <cstddef>
#include <string_view>

namespace characters {

/// Returned for bytes that are not UTF-8. Greater than every character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// NextCodePoint for characters of any length; that function reads ASCII inline.
char32_t NextOfAnyLength(std::string_view text, std::size_t& place);

/// Returns the UTF-8 character at the place and advances the place to the next one. For bytes that
/// are not UTF-8 it returns kNotUtf8 and advances past them.
inline char32_t NextCodePoint(std::string_view text, std::size_t& place) {
    constexpr unsigned char kAsciiLimit = 0x80;
    const auto byte = static_cast<unsigned char>(text[place]);
    if (byte >= kAsciiLimit) return NextOfAnyLength(text, place);
    ++place;
    return byte;
}

/// Returns the length of a text without an incomplete character at its end.
std::size_t WholeCharacters(std::string_view text);

}  // namespace characters
