#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Bytes.h"

namespace fuzz {

/// The rest of an input as a text. It begins with a byte that says how: even, the bytes are the
/// text, with U+FFFD for what is not UTF-8; odd, each pair of bytes is a character of one of the
/// blocks of Unicode that an index may meet, or a token of the gazetteer's. At most so many bytes
/// long.
std::string TakeUnicode(Bytes& bytes, std::size_t longest);

/// The bytes as a text, with U+FFFD for each that is not UTF-8.
std::string Repaired(std::string_view bytes);

}  // namespace fuzz
