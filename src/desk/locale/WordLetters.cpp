#include "desk/locale/WordLetters.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include "characters/Utf8.h"

namespace desk {
namespace {

constexpr char32_t kApostrophe = U'\'';
constexpr char32_t kRightQuote = 0x2019;

bool IsWordCharacter(char32_t character) {
    if (character == characters::kNotUtf8) return false;
    const auto point = static_cast<UChar32>(character);
    return u_isalpha(point) != 0 || (U_GET_GC_MASK(point) & U_GC_M_MASK) != 0;
}

bool IsApostrophe(char32_t character) {
    return character == kApostrophe || character == kRightQuote;
}

char32_t Small(char32_t character) {
    return static_cast<char32_t>(u_tolower(static_cast<UChar32>(character)));
}

/// Adds a character, or composes the one before with it.
void Append(Word& word, WordLetter letter) {
    UErrorCode status = U_ZERO_ERROR;
    const auto* const composer = icu::Normalizer2::getNFCInstance(status);
    const UChar32 both = word.empty() || U_FAILURE(status) != 0
                             ? U_SENTINEL
                             : composer->composePair(static_cast<UChar32>(word.back().character),
                                                     static_cast<UChar32>(letter.character));
    if (both >= 0)
        word.back().character = static_cast<char32_t>(both);
    else
        word.push_back(letter);
}

}  // namespace

std::vector<Word> WordsOf(std::string_view text) {
    std::vector<Word> words;
    bool isInWord = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = characters::NextCodePoint(text, at);
        std::size_t behind = at;
        const bool joins = isInWord && IsApostrophe(character) && at < text.size() &&
                           IsWordCharacter(characters::NextCodePoint(text, behind));
        const bool wasInWord = isInWord;
        isInWord = joins || IsWordCharacter(character);
        if (!isInWord) continue;
        if (!wasInWord) words.emplace_back();
        Append(words.back(), {Small(character), start});
    }
    return words;
}

}  // namespace desk
