#pragma once

#include <cstdint>
#include <string>
#include <type_traits>

#include "host/Locale.h"
#include "host/Variant.h"

/// Reading variants as a type. A value that cannot become the type fails as a type mismatch, one
/// that does not fit as an overflow.
namespace gazetteer {

[[noreturn]] void FailTypeMismatch();

/// Numbers are true unless they are 0; texts are "True" or "False" in any case.
bool ToBoolean(const host::Variant& value);

/// Halves are rounded to the even neighbour; texts are read as numbers of the locale.
std::int32_t ToLong(const host::Variant& value, host::IHostLocale& locale);

/// Texts are read as numbers of the locale.
double ToDouble(const host::Variant& value, host::IHostLocale& locale);

/// Numbers in their shortest form. Null and objects cannot become a text; an empty variant is the
/// empty text.
std::string ToText(const host::Variant& value, host::IHostLocale& locale);
std::string ToText(host::Variant&& value, host::IHostLocale& locale);

/// The object of kind T in the variant; null where there is none, or one of another kind.
template <class T>
host::Ref<T> ToObject(const host::Variant& value) {
    const auto* object = std::get_if<host::Ref<host::IHostObject>>(&value);
    return object ? host::As<T>(*object) : nullptr;
}

/// The object seen as T; a type mismatch for null and for another kind.
template <class T, class U>
host::Ref<T> Require(const host::Ref<U>& object) {
    auto wanted = host::As<T>(object);
    if (!wanted) FailTypeMismatch();
    return wanted;
}

/// The value as one of the types that settings have; objects of another kind are a type mismatch.
template <class T>
T ValueAs(const host::Variant& value, host::IHostLocale& locale) {
    if constexpr (std::is_same_v<T, bool>) {
        return ToBoolean(value);
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        return ToLong(value, locale);
    } else if constexpr (std::is_same_v<T, double>) {
        return ToDouble(value, locale);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return ToText(value, locale);
    } else {
        auto object = ToObject<typename T::element_type>(value);
        if (!object) FailTypeMismatch();
        return object;
    }
}

/// A setting as it is stored.
template <class T>
host::Variant AsVariant(const T& value) {
    if constexpr (std::is_convertible_v<T, host::Ref<host::IHostObject>>)
        return host::Ref<host::IHostObject>(value);
    else
        return value;
}

}  // namespace gazetteer
