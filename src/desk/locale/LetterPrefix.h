#pragma once

#include <cstddef>
#include <string_view>

namespace desk {

/// The length in bytes of a beginning that decides where in the order of any locale the text's
/// first letter is: all texts that begin so, or are so, have the same letter. Zero if that is not
/// certain.
std::size_t LetterPrefix(std::string_view text);

/// No order of ICU takes more characters together as one letter, where its first is one for which
/// LetterPrefix answers; Hungarian DDZS is the longest.
inline constexpr int kLongestLetter = 4;

/// Whether a text's first character can be that of a prefix: a letter that no order ignores.
bool CanBeginPrefix(char32_t character);

}  // namespace desk
