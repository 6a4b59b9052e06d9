#include "pdf/file/Violations.h"

#include "characters/Utf8.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Bytes of a text as a string: escapes are no part of it, and hexadecimal ones have two digits
/// each.
std::size_t StringBytes(std::string_view text) {
    const std::string written = TextString(text);
    return written.front() == '<' ? written.size() / 2 - 1 : text.size();
}

}  // namespace

std::string Violation::Text() const {
    return page == 0 ? what : what + " (on page " + std::to_string(page) + " of the file)";
}

void Violations::CheckText(std::string_view name, std::string_view text) {
    // A character of one byte takes two at most.
    if (text.size() <= kLongestString / 2 - 1 || StringBytes(text) <= kLongestString) return;
    constexpr std::size_t kShown = 30;
    const std::string_view start = text.substr(0, kShown);
    Add(Violation::Rule::StringLength,
        std::string(name) + " that begins with \"" +
            std::string(start.substr(0, characters::WholeCharacters(start))) +
            "\" is longer than " + std::to_string(kLongestString) + " bytes");
}

}  // namespace pdf
