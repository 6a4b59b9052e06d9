#include "desk/locale/IndexLetters.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include "host/Failure.h"

namespace desk {
namespace {

std::string Utf8(const icu::UnicodeString& text) {
    std::string utf8;
    return text.toUTF8String(utf8);
}

/// Null if the text has no letter.
icu::UnicodeString FirstLetter(const icu::UnicodeString& text) {
    for (std::int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        const UChar32 character = text.char32At(at);
        if (u_isalpha(character) != 0) return icu::UnicodeString(u_totitle(character));
        if (u_isdigit(character) != 0) return {};
    }
    return {};
}

}  // namespace

IndexLetters::IndexLetters(const std::string& locale) {
    UErrorCode error = U_ZERO_ERROR;
    icu::AlphabeticIndex index(icu::Locale(locale.c_str()), error);
    // An index in another script has Latin names, too.
    index.addLabels(icu::Locale::getEnglish(), error);
    index_.reset(index.buildImmutableIndex(error));
    if (U_FAILURE(error) != 0)
        throw host::Failure(host::kFailureUnspecified, "IndexLetters",
                            "There are no index letters for the locale \"" + locale +
                                "\": " + u_errorName(error) + '.');
}

std::string IndexLetters::LetterOf(const std::string& text) const {
    const auto wide = icu::UnicodeString::fromUTF8(text);
    if (wide.isEmpty()) return {};
    const icu::UnicodeString first = FirstLetter(wide);
    if (first.isEmpty()) return "#";
    UErrorCode error = U_ZERO_ERROR;
    const auto* const bucket = index_->getBucket(index_->getBucketIndex(wide, error));
    const bool isLetter =
        U_SUCCESS(error) != 0 && bucket != nullptr && bucket->getLabelType() == U_ALPHAINDEX_NORMAL;
    return Utf8(isLetter ? bucket->getLabel() : first);
}

}  // namespace desk
