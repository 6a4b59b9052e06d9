#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace desk {

/// A letter of a word as patterns of hyphenation have it: small and composed.
struct WordLetter {
    char32_t character;
    std::size_t start;  ///< Offset in bytes of where it is in the text.
};

using Word = std::vector<WordLetter>;

/// The words of a text: letters with the marks on them, and apostrophes between letters.
std::vector<Word> WordsOf(std::string_view text);

}  // namespace desk
