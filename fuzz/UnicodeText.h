#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Bytes.h"

namespace fuzz {

/// Returns the rest of an input as a text of at most `longest` bytes. The first byte selects the
/// method. Even: the bytes are the text, with U+FFFD for malformed ones. Odd: each pair of bytes
/// selects a character from the Unicode blocks of an index, or a token of the gazetteer.
std::string TakeUnicode(Bytes& bytes, std::size_t longest);

/// Returns the bytes as a text, with U+FFFD for each malformed one.
std::string Repaired(std::string_view bytes);

}  // namespace fuzz
