#include "desk/locale/LetterPrefix.h"

#include <unicode/uchar.h>

#include "characters/Utf8.h"

namespace desk {
namespace {

constexpr char32_t kAsciiEnd = 0x80;

/// Whether a combining mark, or a character composed so, could join the letter before it.
bool CanJoin(char32_t character) {
    if (character < kAsciiEnd || character == characters::kNotUtf8) return false;
    return u_getIntPropertyValue(static_cast<UChar32>(character),
                                 UCHAR_LEAD_CANONICAL_COMBINING_CLASS) != 0;
}

}  // namespace

bool CanBeginPrefix(char32_t character) {
    if (character < kAsciiEnd)
        return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
    // Scripts of South Asia and Tibet have longer letters, and behind Hangul are letters that
    // orders ignore.
    constexpr char32_t kDevanagari = 0x0900, kKana = 0x3041, kHangulEnd = 0xD7A4;
    if (character >= kDevanagari && (character < kKana || character >= kHangulEnd)) return false;
    constexpr std::uint32_t kLetters = U_GC_LU_MASK | U_GC_LL_MASK | U_GC_LT_MASK | U_GC_LO_MASK;
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & kLetters) != 0;
}

std::size_t LetterPrefix(std::string_view text) {
    std::size_t end = 0;
    if (text.empty() || !CanBeginPrefix(characters::NextCodePoint(text, end))) return 0;
    for (int taken = 1; taken < kLongestLetter; ++taken) {
        if (end == text.size()) return end;
        characters::NextCodePoint(text, end);
    }
    std::size_t behind = end;
    return end < text.size() && CanJoin(characters::NextCodePoint(text, behind)) ? 0 : end;
}

}  // namespace desk
