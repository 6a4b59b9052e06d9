#pragma once

#include <string>

namespace support {

/// UTF-8 of a character below U+10000.
inline std::string Utf8(char32_t c) {
    const auto tail = [&](unsigned shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), tail(0)};
    return {static_cast<char>(0xE0 | c >> 12), tail(6), tail(0)};
}

}  // namespace support
