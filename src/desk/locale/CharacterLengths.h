#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <unicode/brkiter.h>
#include <vector>

namespace desk {

/// Cuts UTF-8 text into what a reader sees as characters.
class CharacterLengths {
public:
    CharacterLengths();

    /// Lengths in bytes, which add up to the length of the text, well-formed or not. CR and LF are
    /// always two.
    std::vector<std::size_t> Of(std::string_view text);

private:
    std::vector<std::size_t> ByRules(std::string_view text);

    std::unique_ptr<icu::BreakIterator> iterator_;
};

}  // namespace desk
