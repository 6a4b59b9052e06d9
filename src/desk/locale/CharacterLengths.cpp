#include "desk/locale/CharacterLengths.h"

#include <unicode/utext.h>

#include "desk/unicode/Utf8.h"
#include "host/Failure.h"

namespace desk {
namespace {

/// Below U+0300 no code point joins another, CR before LF apart, which counts as two here. So each
/// code point is a character of its own, and no rules are needed; false when the text leaves this
/// range or is not well-formed.
bool SimpleLengths(std::string_view text, std::vector<std::size_t>& lengths) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (NextCodePoint(text, at) >= 0x300) return false;
        lengths.push_back(at - start);
    }
    return true;
}

[[noreturn]] void FailWithoutRules() {
    throw host::Failure(host::kFailureUnspecified, "CharacterLengths",
                        "ICU has no rules for splitting text into characters.");
}

}  // namespace

CharacterLengths::CharacterLengths() {
    UErrorCode status = U_ZERO_ERROR;
    iterator_.reset(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status)) FailWithoutRules();
}

std::vector<std::size_t> CharacterLengths::Of(std::string_view text) {
    std::vector<std::size_t> lengths;
    lengths.reserve(text.size());
    if (SimpleLengths(text, lengths)) return lengths;
    return ByRules(text);
}

std::vector<std::size_t> CharacterLengths::ByRules(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator_->setText(&source, status);
    if (U_FAILURE(status)) FailWithoutRules();

    std::vector<std::size_t> lengths;
    std::size_t start = 0;
    iterator_->first();
    for (std::int32_t next = iterator_->next(); next != icu::BreakIterator::DONE;
         next = iterator_->next()) {
        const auto end = static_cast<std::size_t>(next);
        const bool lineEnd = end - start == 2 && text.substr(start, 2) == "\r\n";
        if (lineEnd) lengths.push_back(1);
        lengths.push_back(lineEnd ? 1 : end - start);
        start = end;
    }
    utext_close(&source);
    return lengths;
}

}  // namespace desk
