#include "desk/text/PlainText.h"

#include <glib.h>

namespace desk {
namespace {

PlainClass ClassOf(char32_t character) {
    switch (g_unichar_get_script(character)) {
        case G_UNICODE_SCRIPT_LATIN:
            return PlainClass::Latin;
        case G_UNICODE_SCRIPT_GREEK:
            return PlainClass::Greek;
        case G_UNICODE_SCRIPT_CYRILLIC:
            return PlainClass::Cyrillic;
        case G_UNICODE_SCRIPT_COMMON:
            return PlainClass::Common;
        default:
            return PlainClass::None;
    }
}

bool IsMarkOrControl(char32_t character) {
    switch (g_unichar_type(character)) {
        case G_UNICODE_CONTROL:
        case G_UNICODE_FORMAT:
        case G_UNICODE_UNASSIGNED:
        case G_UNICODE_SURROGATE:
        case G_UNICODE_PRIVATE_USE:
        case G_UNICODE_NON_SPACING_MARK:
        case G_UNICODE_SPACING_MARK:
        case G_UNICODE_ENCLOSING_MARK:
        case G_UNICODE_LINE_SEPARATOR:
        case G_UNICODE_PARAGRAPH_SEPARATOR:
            return true;
        default:
            return false;
    }
}

void Fill(PlainClasses& classes, char32_t first, char32_t last) {
    for (char32_t character = first; character <= last; ++character)
        if (!IsMarkOrControl(character)) classes[character] = ClassOf(character);
}

PlainClasses MakeClasses() {
    PlainClasses classes{};
    Fill(classes, 0x0020, 0x024F);  // Basic Latin to Latin Extended-B
    Fill(classes, 0x0370, 0x052F);  // Greek and Cyrillic
    Fill(classes, 0x1E00, 0x1FFF);  // Latin Extended Additional, Greek Extended
    Fill(classes, 0x2012, 0x2026);  // dashes, quotation marks, bullets, dots
    Fill(classes, 0x2030, 0x203A);  // per mille, primes, angle quotes
    Fill(classes, 0x20A0, 0x20BF);  // currencies
    Fill(classes, 0x2116, 0x2116);  // numero sign
    return classes;
}

}  // namespace

const PlainClasses& AllPlainClasses() {
    static const PlainClasses classes = MakeClasses();
    return classes;
}

char32_t NextWideCharacter(std::string_view text, std::size_t& place) {
    const auto byte = [&](std::size_t offset) -> char32_t {
        return place + offset < text.size() ? static_cast<unsigned char>(text[place + offset]) : 0;
    };
    const auto continues = [&](std::size_t offset) { return (byte(offset) & 0xC0) == 0x80; };
    char32_t character = byte(0);
    std::size_t length = 1;
    if (character >= 0xC2 && character < 0xE0 && continues(1)) {
        character = (character & 0x1F) << 6 | (byte(1) & 0x3F);
        length = 2;
    } else if (character >= 0xE0 && character < 0xF0 && continues(1) && continues(2)) {
        character = (character & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
        length = character < 0x800 ? 1 : 3;
        if (length == 1) character = kPlainTextLimit;
    } else {
        character = kPlainTextLimit;
    }
    place += length;
    return character < kPlainTextLimit ? character : kPlainTextLimit;
}

PlainClass PlainScript(std::string_view text, const PlainClasses& classes) {
    PlainClass found = PlainClass::Common;
    for (std::size_t place = 0; place < text.size();) {
        const char32_t character = NextCharacter(text, place);
        if (character >= kPlainTextLimit) return PlainClass::None;
        const PlainClass here = classes[character];
        if (here == PlainClass::Common || here == found) continue;
        if (here == PlainClass::None || found != PlainClass::Common) return PlainClass::None;
        found = here;
    }
    return found;
}

}  // namespace desk
