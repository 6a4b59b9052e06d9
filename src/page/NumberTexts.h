#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <type_traits>

#include "host/Host.h"
#include "model/Keys.h"
#include "page/ControlValues.h"
#include "support/Conversions.h"
#include "support/Text.h"

/// Numbers in text boxes: lengths in inches (double) and page numbers.
namespace gazetteer {

/// Returns nothing for a text that is not a number of the type. Ignores blanks around a number.
template <class T>
std::optional<T> NumberIn(std::string text, host::IHostLocale& locale) {
    text = WithoutOuterBlanks(text);
    const auto number = locale.ParseNumber(text);
    if (!number) return std::nullopt;
    if (std::is_same_v<T, double> && !IsLength(*number)) return std::nullopt;
    try {
        return ValueAs<T>(*number, locale);
    } catch (const host::Failure&) {
        return std::nullopt;  // Outside the range of the type.
    }
}

/// Whether a text is a number of the type. The host must outlive the function.
template <class T>
std::function<bool(const QString&)> NumberTest(host::IHost& host) {
    return [&host](const QString& text) {
        try {
            return NumberIn<T>(FromQt(text), host.Locale()).has_value();
        } catch (const host::Failure&) {
            return true;  // Reading the box tells why it cannot be judged.
        }
    };
}

/// What to type, and what is used until then.
std::string RangeSentence(double byDefault, host::IHostLocale& locale);
std::string RangeSentence(std::int32_t byDefault, host::IHostLocale& locale);

}  // namespace gazetteer
