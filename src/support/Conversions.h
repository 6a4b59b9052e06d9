#pragma once

#include <cstdint>
#include <string>

#include "host/Locale.h"
#include "host/Variant.h"

/// Reading variants as a type. A value that cannot become the type fails as a type mismatch, one
/// that does not fit as an overflow.
namespace gazetteer {

/// Numbers are true unless they are 0; texts are "True" or "False" in any case.
bool ToBoolean(const host::Variant& value);

/// Halves are rounded to the even neighbour; texts are read as numbers of the locale.
std::int32_t ToLong(const host::Variant& value, host::IHostLocale& locale);

/// Texts are read as numbers of the locale.
double ToDouble(const host::Variant& value, host::IHostLocale& locale);

/// Numbers in their shortest form. Null and objects cannot become a text; an empty variant is the
/// empty text.
std::string ToText(const host::Variant& value, host::IHostLocale& locale);

/// The object of kind T in the variant; null where there is none, or one of another kind.
template <class T>
host::Ref<T> ToObject(const host::Variant& value) {
    const auto* object = std::get_if<host::Ref<host::IHostObject>>(&value);
    return object ? host::As<T>(*object) : nullptr;
}

}  // namespace gazetteer
