#include "listings/NumberTokens.h"

#include <cmath>
#include <utility>

#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

bool IsDigit(const std::string& character, host::IHostLocale& locale) {
    const char first = character[0];
    if (character.size() == 1) return first >= '0' && first <= '9';
    return locale.ParseNumber(character).has_value();
}

}  // namespace

const NumberTokens& NumberTokenizer::Tokens(const std::string& text) {
    const auto known = texts_.find(text);
    if (known != texts_.end()) return known->second;
    NumberTokens tokens;
    Split(text, [&](const NumberToken* token) { tokens.push_back(token); });
    return texts_.emplace(text, std::move(tokens)).first->second;
}

const NumberToken* NumberTokenizer::AddToken(const std::string& text, Words& words) {
    NumberToken token;
    bool isItsPiece = false;
    if (ContainsNumber(text, locale_)) {
        const auto number = locale_.ParseNumber(text);
        token.numeric =
            number.has_value() && !std::isnan(*number);  // NaN has no place in an order.
        token.value = number.value_or(0);
        // Separated pieces are numbers or have no digit, so they are not separated again.
        if (&words == &words_) {
            const std::string pieces = SeparateNumbers(text, locale_);
            isItsPiece = token.numeric && pieces == text;
            if (!isItsPiece)
                Split(pieces, pieces_,
                      [&](const NumberToken* piece) { token.separated.push_back(piece); });
        }
    }
    token.key = locale_.CollationKey(text);
    token.number = static_cast<std::uint32_t>(tokens_.size());
    NumberToken& added = words.emplace(text, std::move(token)).first->second;
    if (isItsPiece) added.separated.push_back(&added);
    return tokens_.emplace_back(&added);
}

std::string SeparateNumbers(const std::string& text, host::IHostLocale& locale) try {
    std::string result;
    bool previousIsDigit = false;
    std::size_t at = 0;
    for (const std::size_t length : locale.Characters(text)) {
        const std::string character = text.substr(at, length);
        const bool isDigit = IsDigit(character, locale);
        if (isDigit != previousIsDigit && at > 0) result += ' ';
        result += character;
        previousIsDigit = isDigit;
        at += length;
    }
    return result;
} catch (...) {
    PassOn("SeparateNumbers", kSortLabel);
}

bool ContainsNumber(const std::string& text, host::IHostLocale& locale) try {
    std::size_t at = 0;
    for (const std::size_t length : locale.Characters(text)) {
        if (IsDigit(text.substr(at, length), locale)) return true;
        at += length;
    }
    return false;
} catch (...) {
    PassOn("ContainsNumber", kSortLabel);
}

}  // namespace gazetteer
