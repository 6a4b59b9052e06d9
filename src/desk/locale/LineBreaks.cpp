#include "desk/locale/LineBreaks.h"

#include <unicode/utext.h>

#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void FailWithoutRules() {
    throw host::Failure(host::kFailureUnspecified, "LineBreaks",
                        "ICU has no rules for breaking lines.");
}

}  // namespace

LineBreaks::LineBreaks(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    rules_.reset(icu::BreakIterator::createLineInstance(locale, status));
    if (U_FAILURE(status) != 0) FailWithoutRules();
}

std::vector<std::size_t> LineBreaks::In(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    rules_->setText(&source, status);
    if (U_FAILURE(status) != 0) FailWithoutRules();

    std::vector<std::size_t> breaks;
    rules_->first();
    for (std::int32_t at = rules_->next(); at != icu::BreakIterator::DONE; at = rules_->next())
        if (static_cast<std::size_t>(at) < text.size())
            breaks.push_back(static_cast<std::size_t>(at));
    utext_close(&source);
    return breaks;
}

}  // namespace desk
