#include "desk/drawing/pdf/Strings.h"

#include <algorithm>
#include <glib.h>

#include "desk/drawing/pdf/Numbers.h"
#include "desk/text/Handles.h"

namespace desk::pdf {
namespace {

constexpr gunichar kFirstOutsideOfUtf16Unit = 0x10000;

void AppendCharacter(std::string& out, gunichar character) {
    if (character < kFirstOutsideOfUtf16Unit) return AppendHex(out, character, 4);
    const gunichar rest = character - kFirstOutsideOfUtf16Unit;
    AppendHex(out, 0xD800 + (rest >> 10), 4);
    AppendHex(out, 0xDC00 + (rest & 0x3FF), 4);
}

}  // namespace

void AppendUtf16(std::string& out, std::string_view text) {
    const GStringHandle valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
    for (const char* place = valid.get(); *place; place = g_utf8_next_char(place))
        AppendCharacter(out, g_utf8_get_char(place));
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
