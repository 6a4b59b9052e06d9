#include "desk/json/ParsedJson.h"

#include <algorithm>
#include <cstddef>

#include "characters/Utf8.h"

namespace desk {

namespace {

/// Token kinds that are not single punctuation characters.
constexpr char kText = '"';
constexpr char kScalar = '0';  ///< A number, true, false or null.
constexpr char kNone = '\0';   ///< The end, or a malformed token.

/// Scans a text up to the first byte that is not valid JSON.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    bool IsWhole() {
        if (!Value(Next(), 0)) return false;
        SkipBlanks();
        if (at_ == text_.size()) return true;
        Next();
        return false;
    }
    /// Bytes read so far; the end of the text counts as one byte.
    std::size_t Read() const { return at_; }

private:
    bool Value(char token, std::size_t depth) {
        if (token == '{') return Items('}', depth + 1);
        if (token == '[') return Items(']', depth + 1);
        return token == kText || token == kScalar;
    }

    bool Items(char close, std::size_t depth) {
        if (depth > simdjson::DEFAULT_MAX_DEPTH) return false;
        char token = Next();
        if (token == close) return true;
        for (;; token = Next()) {
            if (close == '}') {
                if (token != kText || Next() != ':') return false;
                token = Next();
            }
            if (!Value(token, depth)) return false;
            token = Next();
            if (token == close) return true;
            if (token != ',') return false;
        }
    }

    /// Reads the next token and returns its kind; kNone if it is malformed.
    char Next() {
        SkipBlanks();
        const char first = Take();
        switch (first) {
            case '"':
                return Text() ? kText : kNone;
            case 't':
                return Rest("rue");
            case 'f':
                return Rest("alse");
            case 'n':
                return Rest("ull");
            default:
                if (IsOneOf("{}[]:,", first)) return first;
                return Number(first) ? kScalar : kNone;
        }
    }

    void SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }
    char Take() { return at_ < text_.size() ? text_[at_++] : (at_ = text_.size() + 1, kNone); }
    char Peek() const { return at_ < text_.size() ? text_[at_] : kNone; }
    bool TakeOneOf(std::string_view signs) {
        const bool found = IsOneOf(signs, Peek());
        if (found) ++at_;
        return found;
    }

    char Rest(std::string_view letters) {
        for (const char letter : letters)
            if (Take() != letter) return kNone;
        return kScalar;
    }

    bool Text() {
        for (;;) {
            if (static_cast<unsigned char>(Peek()) >= 0x80) {
                if (characters::NextCodePoint(text_, at_) == characters::kNotUtf8) return false;
                continue;
            }
            const char letter = Take();
            if (letter == '"') return true;
            if (static_cast<unsigned char>(letter) < ' ') return false;
            if (letter == '\\' && !Escape()) return false;
        }
    }

    bool Escape() {
        const char kind = Take();
        if (kind != 'u') return IsOneOf("\"\\/bfnrt", kind);
        for (int i = 0; i < 4; ++i)
            if (!IsOneOf("0123456789abcdefABCDEF", Take())) return false;
        return true;
    }

    bool Number(char first) {
        if (first == '-') first = Take();
        if (!IsOneOf(kDigits, first)) return false;
        while (first != '0' && TakeOneOf(kDigits)) {
        }
        if (TakeOneOf(".") && !Digits()) return false;
        if (!TakeOneOf("eE")) return true;
        TakeOneOf("+-");
        return Digits();
    }

    bool Digits() {
        if (!IsOneOf(kDigits, Take())) return false;
        while (TakeOneOf(kDigits)) {
        }
        return true;
    }

    static bool IsOneOf(std::string_view signs, char sign) {
        return signs.find(sign) != std::string_view::npos;
    }

    static constexpr std::string_view kDigits = "0123456789";
    std::string_view text_;
    std::size_t at_ = 0;
};

}  // namespace

std::string PlaceOfJsonFault(std::string_view text) {
    Scanner scanner(text);
    if (scanner.IsWhole()) return {};
    const auto before = text.substr(0, scanner.Read() - 1);
    const auto line = std::ranges::count(before, '\n') + 1;
    const auto lineStart = before.rfind('\n') + 1;  // 0 in the first line.
    return "line " + std::to_string(line) + ", column " +
           std::to_string(before.size() - lineStart + 1);
}

// The parser and its tables are freed on return: 45 MB for a million listings.
ParsedJson::ParsedJson(const std::string& text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const std::size_t start = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    const bool padded = text.capacity() - text.size() >= simdjson::SIMDJSON_PADDING;
    simdjson::dom::parser parser;
    error_ =
        parser.parse_into_document(document_, text.data() + start, text.size() - start, !padded)
            .get(root_);
}

}  // namespace desk
