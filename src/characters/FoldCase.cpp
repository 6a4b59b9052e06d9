#include "characters/FoldCase.h"

#include <unicode/unistr.h>

namespace characters {

std::string FoldCase(const std::string& text) {
    std::string folded = text;
    for (char& letter : folded) {
        if (static_cast<unsigned char>(letter) >= 0x80) {
            folded.clear();
            return icu::UnicodeString::fromUTF8(text).foldCase().toUTF8String(folded);
        }
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return folded;
}

}  // namespace characters
