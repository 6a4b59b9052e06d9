#include "desk/locale/LocaleNames.h"

#include <span>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace desk {

std::vector<LocaleName> LocaleNames() {
    std::vector<LocaleName> names;
    std::int32_t count = 0;
    const icu::Locale* const known = icu::Locale::getAvailableLocales(count);
    for (const icu::Locale& locale : std::span(known, static_cast<std::size_t>(count))) {
        const std::string name = locale.getName();
        names.push_back({name, name});
        if (name != locale.getLanguage()) continue;
        for (const icu::Locale& reader : {icu::Locale::getEnglish(), locale}) {
            icu::UnicodeString text;
            names.push_back({name, {}});
            locale.getDisplayLanguage(reader, text).toUTF8String(names.back().text);
        }
    }
    return names;
}

}  // namespace desk
