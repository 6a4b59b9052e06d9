#include "desk/drawing/pdf/Strings.h"

#include <algorithm>

#include "desk/drawing/pdf/Numbers.h"
#include "desk/unicode/Utf8.h"

namespace desk::pdf {
namespace {

constexpr char32_t kFirstOutsideOfUtf16Unit = 0x10000;

void AppendCharacter(std::string& out, char32_t character) {
    if (character < kFirstOutsideOfUtf16Unit) return AppendHex(out, character, 4);
    const char32_t rest = character - kFirstOutsideOfUtf16Unit;
    AppendHex(out, 0xD800 + (rest >> 10), 4);
    AppendHex(out, 0xDC00 + (rest & 0x3FF), 4);
}

}  // namespace

void AppendUtf16(std::string& out, std::string_view text) {
    for (std::size_t place = 0; place < text.size();) {
        const char32_t character = NextCodePoint(text, place);
        AppendCharacter(out, character == kNotUtf8 ? U'\uFFFD' : character);
    }
}

void AppendTextString(std::string& out, std::string_view text) {
    const bool plain = std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
    if (plain) {
        out += '(';
        AppendEscaped(out, text);
        out += ')';
    } else {
        out += "<FEFF";
        AppendUtf16(out, text);
        out += '>';
    }
}

void AppendEscaped(std::string& out, std::string_view bytes) {
    for (const char byte : bytes) {
        if (byte == '(' || byte == ')' || byte == '\\') out += '\\';
        out += byte;
    }
}

}  // namespace desk::pdf
