#pragma once

#include <cstddef>
#include <string_view>

namespace desk {

/// Result for bytes that are not UTF-8. Greater than any code point.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Returns the code point at a byte offset and advances the offset past it. Returns kNotUtf8 for
/// malformed bytes and skips them.
char32_t NextCodePoint(std::string_view text, std::size_t& place);

/// Returns the length in bytes of a text without an incomplete character at its end.
std::size_t WholeCharacters(std::string_view text);

}  // namespace desk
