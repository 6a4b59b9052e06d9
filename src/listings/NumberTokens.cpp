#include "listings/NumberTokens.h"

#include "support/Text.h"

namespace gazetteer {

const NumberTokens& NumberTokenizer::Tokens(const std::string& text) {
    const auto [entry, isNew] = texts_.try_emplace(text);
    if (isNew) entry->second = Split(text, false);
    return entry->second;
}

NumberTokens NumberTokenizer::Split(const std::string& text, bool separated) {
    NumberTokens tokens;
    if (text.empty()) return tokens;
    for (const std::string& piece : gazetteer::Split(text, ' '))
        tokens.push_back(Token(piece, separated));
    return tokens;
}

const NumberToken* NumberTokenizer::Token(const std::string& text, bool separated) {
    auto& words = separated ? separatedWords_ : words_;
    const auto known = words.find(text);
    if (known != words.end()) return known->second;

    NumberToken token;
    token.containsNumber = ContainsNumber(text);
    if (token.containsNumber) {
        const auto number = locale_.ParseNumber(text);
        token.numeric = number.has_value();
        token.value = number.value_or(0);
        // Separated pieces are numbers or hold no digit, so they need not be taken apart again.
        if (!separated) token.separated = Split(SeparateNumbers(text), true);
    }
    token.key = locale_.CollationKey(text);
    return words.emplace(text, &tokens_.emplace_back(std::move(token))).first->second;
}

bool NumberTokenizer::IsDigit(const std::string& character) {
    const char first = character[0];
    if (character.size() == 1) return first >= '0' && first <= '9';
    return locale_.ParseNumber(character).has_value();
}

bool NumberTokenizer::ContainsNumber(const std::string& text) {
    std::size_t at = 0;
    for (const std::size_t length : locale_.Characters(text)) {
        if (IsDigit(text.substr(at, length))) return true;
        at += length;
    }
    return false;
}

std::string NumberTokenizer::SeparateNumbers(const std::string& text) {
    std::string result;
    bool previousIsDigit = false;
    std::size_t at = 0;
    for (const std::size_t length : locale_.Characters(text)) {
        const std::string character = text.substr(at, length);
        const bool isDigit = IsDigit(character);
        if (isDigit != previousIsDigit && at > 0) result += ' ';
        result += character;
        previousIsDigit = isDigit;
        at += length;
    }
    return result;
}

}  // namespace gazetteer
