#pragma once

#include <cstddef>
#include <string_view>

namespace desk {

/// Stands for bytes that are not UTF-8; above every character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Reads the UTF-8 character at the place and moves the place behind it. Bytes that are not UTF-8
/// give kNotUtf8, and the place moves on by as many as belong together.
char32_t NextCodePoint(std::string_view text, std::size_t& place);

/// Length of a text without a character at its end that is begun but not complete.
std::size_t WholeCharacters(std::string_view text);

}  // namespace desk
