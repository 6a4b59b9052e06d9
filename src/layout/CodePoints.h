#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace gazetteer {

/// Whether a byte of UTF-8 goes on with the character of the one before.
constexpr bool IsContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// Of a text in UTF-8.
inline std::size_t CountCodePoints(std::string_view text) {
    return text.size() - static_cast<std::size_t>(std::ranges::count_if(text, IsContinuation));
}

}  // namespace gazetteer
