#include "characters/TextProperties.h"

#include <algorithm>
#include <unicode/uchar.h>

#include "characters/Utf8.h"

namespace characters {
namespace {

bool IsWrittenWithoutBlanks(UChar32 character) {
    const auto breaks = u_getIntPropertyValue(character, UCHAR_LINE_BREAK);
    return breaks == U_LB_IDEOGRAPHIC || breaks == U_LB_COMPLEX_CONTEXT ||
           breaks == U_LB_CONDITIONAL_JAPANESE_STARTER || breaks == U_LB_CLOSE_PUNCTUATION;
}

UChar32 LastOf(std::string_view text) {
    std::size_t start = text.size() - 1;
    while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) --start;
    return static_cast<UChar32>(NextCodePoint(text, start));
}

}  // namespace

bool LineEndPartsWords(std::string_view before, std::string_view after) {
    if (before.empty() || after.empty() || before.back() == ' ' || before.back() == '-' ||
        after.front() == ' ')
        return false;
    std::size_t at = 0;
    const char32_t first = NextCodePoint(after, at);
    return !(IsWrittenWithoutBlanks(LastOf(before)) &&
             IsWrittenWithoutBlanks(static_cast<UChar32>(first)));
}

std::size_t FirstToTheLeft(std::string_view text) {
    constexpr unsigned char kFirstLeadByte = 0xD6;  // Of U+0590, where these scripts begin.
    if (text.empty() || static_cast<unsigned char>(text[0]) < kFirstLeadByte) return text.size();
    std::size_t first = 0;
    for (std::size_t at = 0; at < text.size();) {
        const auto direction = u_charDirection(static_cast<UChar32>(NextCodePoint(text, at)));
        if (direction != U_RIGHT_TO_LEFT && direction != U_RIGHT_TO_LEFT_ARABIC) return text.size();
        if (first == 0) first = at;
    }
    return first;
}

bool HasPrivateUse(std::string_view text) {
    constexpr unsigned char kFirst = 0xEE;  // First byte of U+E000.
    if (std::ranges::none_of(text, [](unsigned char byte) { return byte >= kFirst; })) return false;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCodePoint(text, at);
        const bool isPrivate = (character >= 0xE000 && character <= 0xF8FF) ||
                               (character >= 0xF0000 && character <= 0x10FFFF);
        if (isPrivate) return true;
    }
    return false;
}

}  // namespace characters
