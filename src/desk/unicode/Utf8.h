#pragma once

#include <cstddef>
#include <string_view>

namespace desk {

/// Returned for bytes that are not UTF-8. Greater than every character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Reads the UTF-8 character at the place and moves the place behind it. Bytes that are not UTF-8
/// give kNotUtf8, and the place moves behind the faulty sequence.
char32_t NextCodePoint(std::string_view text, std::size_t& place);

/// Returns the length of a text without an incomplete character at its end.
std::size_t WholeCharacters(std::string_view text);

}  // namespace desk
