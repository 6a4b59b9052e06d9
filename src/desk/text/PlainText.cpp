#include "desk/text/PlainText.h"

#include <glib.h>

#include "characters/Utf8.h"

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

PlainClass PlainScript(std::string_view text, const PlainClasses& classes) {
    auto any = static_cast<unsigned>(PlainClass::Common);
    unsigned all = any;
    for (std::size_t place = 0; place < text.size();) {
        const char32_t character = characters::NextCodePoint(text, place);
        if (character >= kPlainTextLimit) return PlainClass::None;
        const auto bits = static_cast<unsigned>(classes[character]);
        any |= bits;
        all &= bits;
    }
    const unsigned scripts = any >> 1;
    const bool mixesScripts = (scripts & (scripts - 1)) != 0;
    return all == 0 || mixesScripts ? PlainClass::None : static_cast<PlainClass>(any);
}

}  // namespace desk
