#include "desk/locale/TextOrder.h"

#include <string>

#include "host/Failure.h"

namespace desk {

std::unique_ptr<icu::RuleBasedCollator> TextOrder(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, status));
    std::unique_ptr<icu::RuleBasedCollator> order(
        dynamic_cast<icu::RuleBasedCollator*>(made.get()));
    if (order) {
        static_cast<void>(made.release());
        order->setStrength(icu::Collator::SECONDARY);
        // Tables contain both composed and decomposed characters.
        order->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    }
    if (!order || U_FAILURE(status) != 0)
        throw host::Failure(
            host::kFailureUnspecified, "TextOrder",
            std::string("ICU has no text order for the locale ") + locale.getName() + ".");
    return order;
}

std::unique_ptr<icu::RuleBasedCollator> LetterOrder(const icu::Locale& locale) {
    auto order = TextOrder(locale);
    order->setStrength(icu::Collator::PRIMARY);
    return order;
}

}  // namespace desk
