#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/Locale.h"
#include "host/Variant.h"
#include "support/Conversions.h"

namespace gazetteer {

/// A piece of text between single blanks, with the properties that ordering uses.
struct NumberToken {
    std::uint32_t number = 0;  ///< Its place among the tokens of its tokenizer.
    bool numeric = false;      ///< The number parser accepts the whole token.
    double value = 0;          ///< Of a numeric token.
    std::string key;           ///< Collation key.
    /// Of a word with a digit: its pieces, digits and other characters apart (A12: A, 12). A number
    /// of digits alone is its own piece; other pieces have none.
    std::vector<const NumberToken*> separated;
};

using NumberTokens = std::vector<const NumberToken*>;

/// Splits texts into tokens. A sort compares each text some twenty times and most words occur in
/// many texts, so both are split once and cached: splitting, parsing and collating for each
/// comparison would be nearly all of the time of a sort. Pointers are valid for its lifetime.
class NumberTokenizer {
public:
    explicit NumberTokenizer(host::IHostLocale& locale) : locale_(locale) {}

    /// The tokens of a text; the text and its tokens are cached.
    const NumberTokens& Tokens(const std::string& text);

    /// Passes the tokens of a text to take. Two blanks in a row give an empty token between them, a
    /// blank at either end one there; an empty text has none.
    template <class Take>
    void Split(std::string_view text, const Take& take) {
        Split(text, words_, take);
    }

    /// All tokens so far, pieces included, by their numbers.
    const NumberTokens& All() const { return tokens_; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    using Words = std::unordered_map<std::string, NumberToken, Hash, std::equal_to<>>;

    template <class Take>
    void Split(std::string_view text, Words& words, const Take& take) {
        if (text.empty()) return;
        for (std::size_t end = text.find(' '); end != std::string_view::npos;
             end = text.find(' ')) {
            take(Token(text.substr(0, end), words));
            text.remove_prefix(end + 1);
        }
        take(Token(text, words));
    }
    const NumberToken* Token(std::string_view text, Words& words) {
        const auto known = words.find(text);
        return known != words.end() ? &known->second : AddToken(std::string(text), words);
    }
    const NumberToken* AddToken(const std::string& text, Words& words);

    host::IHostLocale& locale_;
    std::unordered_map<std::string, NumberTokens> texts_;
    Words words_;
    Words pieces_;
    NumberTokens tokens_;
};

/// Inner: one blank at every change between digits and other characters: "A12B" becomes "A 12 B".
std::string SeparateNumbers(const std::string& text, host::IHostLocale& locale);

/// Inner: any single character of the text is a digit.
bool ContainsNumber(const std::string& text, host::IHostLocale& locale);

/// The text that a value sorts by: its own, or its conversion in the storage.
inline const std::string& TextIn(const host::Variant& value, host::IHostLocale& locale,
                                 std::string& storage) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return storage = ToText(value, locale);
}

}  // namespace gazetteer
