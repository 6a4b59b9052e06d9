#include "desk/locale/LocaleName.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <unicode/coll.h>
#include <unicode/strenum.h>

#include "host/Failure.h"

namespace desk {
namespace {

/// The C locale compares byte by byte under ICU's name for it, so that a and A would differ; the
/// root gives the neutral order that is meant.
bool IsPlainC(std::string_view name) {
    const std::string_view base = name.substr(0, name.find('.'));
    return base.empty() || base == "C" || base == "POSIX" || base == "root" || base == "und" ||
           base.starts_with("en_US_POSIX") || base.starts_with("en-US-posix");
}

bool HasLanguage(const icu::Locale& locale) {
    std::int32_t count = 0;
    const icu::Locale* known = icu::Locale::getAvailableLocales(count);
    return std::any_of(known, known + count, [&](const icu::Locale& candidate) {
        return std::strcmp(candidate.getLanguage(), locale.getLanguage()) == 0;
    });
}

bool HasCollation(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const auto wanted = locale.getKeywordValue<std::string>("collation", status);
    if (U_FAILURE(status) || wanted.empty()) return true;
    const std::unique_ptr<icu::StringEnumeration> values(
        icu::Collator::getKeywordValuesForLocale("collation", locale, false, status));
    while (U_SUCCESS(status)) {
        const char* value = values->next(nullptr, status);
        if (value == nullptr) return false;
        if (wanted == value) return true;
    }
    return false;
}

/// The name with the script in ICU's place that the C library puts behind an @: sr_RS.UTF-8@latin
/// is sr_Latn_RS. Modifiers of other kinds, such as euro, stay where ICU passes over them.
std::string WithScript(const std::string& name) {
    struct Script {
        std::string_view modifier, code;
    };
    static constexpr Script kScripts[] = {
        {"@latin", "_Latn"}, {"@cyrillic", "_Cyrl"}, {"@devanagari", "_Deva"}};
    for (const auto& [modifier, code] : kScripts) {
        if (!name.ends_with(modifier)) continue;
        std::string base = name.substr(0, name.find_first_of(".@"));
        return base.insert(std::min(base.find('_'), base.size()), code);
    }
    return name;
}

icu::Locale Parse(const std::string& name) {
    if (name.find("-u-") == std::string::npos)
        return icu::Locale::createCanonical(WithScript(name).c_str());
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = icu::Locale::forLanguageTag(name, status);
    return U_SUCCESS(status) ? locale : icu::Locale("");
}

std::optional<icu::Locale> Known(const std::string& name) {
    if (IsPlainC(name)) return icu::Locale::getRoot();
    const icu::Locale locale = Parse(name);
    if (locale.isBogus() || locale.getLanguage()[0] == '\0') return std::nullopt;
    if (!HasLanguage(locale) || !HasCollation(locale)) return std::nullopt;
    return locale;
}

std::string UserLocaleName() {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

}  // namespace

icu::Locale FindLocale(const std::string& name) {
    if (name.empty()) return Known(UserLocaleName()).value_or(icu::Locale::getRoot());
    const auto locale = Known(name);
    if (!locale)
        throw host::Failure(host::kFailureNotFound, "FindLocale",
                            "There is no locale named " + name + ".");
    return *locale;
}

}  // namespace desk
