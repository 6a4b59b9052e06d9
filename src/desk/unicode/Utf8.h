#pragma once

#include <cstddef>
#include <string_view>

namespace desk {

/// Returned for bytes that are not UTF-8. Greater than every character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Returns the UTF-8 character at the place and moves the place behind it. Returns kNotUtf8 for
/// bytes that are not UTF-8 and moves the place behind these.
char32_t NextCodePoint(std::string_view text, std::size_t& place);

/// Returns the length of a text without an incomplete character at its end.
std::size_t WholeCharacters(std::string_view text);

}  // namespace desk
