#pragma once

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/Locale.h"

namespace gazetteer {

/// A piece of text between single blanks, with all that ordering asks of it.
struct NumberToken {
    bool numeric = false;         ///< The number parser accepts the whole token.
    bool containsNumber = false;  ///< Some character of it is a digit.
    double value = 0;             ///< Of a numeric token.
    std::string key;              ///< Collation key.
    /// Of a token that contains a number: its pieces once digits and other characters are apart.
    std::vector<const NumberToken*> separated;
};

using NumberTokens = std::vector<const NumberToken*>;

/// Splits texts into tokens. A sort compares each text some twenty times and most words stand in
/// many texts, so both are taken apart once and kept: splitting, parsing and collating anew for
/// each comparison is nearly all of the time of a sort. Pointers stay valid for its life.
class NumberTokenizer {
public:
    explicit NumberTokenizer(host::IHostLocale& locale) : locale_(locale) {}

    /// The tokens of a text. Two blanks in a row give an empty token between them, a blank at
    /// either end one there; an empty text has none.
    const NumberTokens& Tokens(const std::string& text);

    /// One blank at every change between digits and other characters: "A12B" becomes "A 12 B".
    std::string SeparateNumbers(const std::string& text);

    /// Any single character of the text is a digit.
    bool ContainsNumber(const std::string& text);

private:
    NumberTokens Split(const std::string& text, bool separated);
    const NumberToken* Token(const std::string& text, bool separated);
    bool IsDigit(const std::string& character);

    host::IHostLocale& locale_;
    std::unordered_map<std::string, NumberTokens> texts_;
    std::unordered_map<std::string, const NumberToken*> words_;
    std::unordered_map<std::string, const NumberToken*> separatedWords_;
    std::deque<NumberToken> tokens_;
};

}  // namespace gazetteer
