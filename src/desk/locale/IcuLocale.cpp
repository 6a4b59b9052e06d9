#include "desk/locale/IcuLocale.h"

#include <unicode/unistr.h>

#include "desk/locale/LocaleName.h"
#include "host/Failure.h"

namespace desk {
namespace {

std::unique_ptr<icu::Collator> MakeCollator(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(locale, status));
    if (U_SUCCESS(status)) {
        collator->setStrength(icu::Collator::SECONDARY);
        // Texts of tables come in any composition.
        collator->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, status);
    }
    if (U_FAILURE(status))
        throw host::Failure(
            host::kFailureUnspecified, "IcuLocale",
            std::string("ICU has no text order for the locale ") + locale.getName() + ".");
    return collator;
}

icu::StringPiece Piece(const std::string& text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

}  // namespace

IcuLocale::IcuLocale(const std::string& name)
    : locale_(FindLocale(name)), collator_(MakeCollator(locale_)), numbers_(locale_) {}

IcuLocale::~IcuLocale() = default;

int IcuLocale::CompareText(const std::string& text1, const std::string& text2) {
    UErrorCode status = U_ZERO_ERROR;
    return collator_->compareUTF8(Piece(text1), Piece(text2), status);
}

std::string IcuLocale::CollationKey(const std::string& text) {
    const auto wide = icu::UnicodeString::fromUTF8(Piece(text));
    std::string key(wide.length() > 0 ? static_cast<std::size_t>(wide.length()) * 2 + 8 : 4, '\0');
    const auto fill = [&] {
        return collator_->getSortKey(wide, reinterpret_cast<std::uint8_t*>(key.data()),
                                     static_cast<std::int32_t>(key.size()));
    };
    auto needed = static_cast<std::size_t>(fill());
    if (needed > key.size()) {
        key.resize(needed);
        needed = static_cast<std::size_t>(fill());
    }
    key.resize(needed == 0 ? 0 : needed - 1);  // ICU ends the key with a zero byte.
    return key;
}

std::optional<double> IcuLocale::ParseNumber(const std::string& text) {
    return numbers_.Parse(text);
}

std::string IcuLocale::FormatNumber(double value) {
    return numbers_.Format(value);
}

std::vector<std::size_t> IcuLocale::Characters(std::string_view text) {
    return characters_.Of(text);
}

}  // namespace desk
