#pragma once

#include <string>

#include "host/Locale.h"
#include "host/Variant.h"
#include "support/Conversions.h"

namespace gazetteer {

/// The text that a value sorts by: its own, or one in the storage.
inline const std::string& TextIn(const host::Variant& value, host::IHostLocale& locale,
                                 std::string& storage) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return storage = ToText(value, locale);
}

}  // namespace gazetteer
