#include "support/Conversions.h"

#include <cmath>
#include <limits>

#include "host/Failure.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

[[noreturn]] void FailNull() {
    throw host::Failure(host::kFailureTypeMismatch, "", "Invalid use of Null");
}

struct NumberOf {
    host::IHostLocale& locale;
    double operator()(host::Empty) const { return 0; }
    double operator()(host::Null) const { FailNull(); }
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(std::int16_t value) const { return value; }
    double operator()(std::int32_t value) const { return value; }
    double operator()(double value) const { return value; }
    double operator()(const std::string& value) const {
        const auto number = locale.ParseNumber(value);
        if (!number) FailTypeMismatch();
        return *number;
    }
    double operator()(const host::Ref<host::IHostObject>&) const { FailTypeMismatch(); }
};

struct TextOf {
    host::IHostLocale& locale;
    std::string operator()(host::Empty) const { return {}; }
    std::string operator()(host::Null) const { FailNull(); }
    std::string operator()(bool value) const { return value ? "True" : "False"; }
    std::string operator()(std::int16_t value) const { return std::to_string(value); }
    std::string operator()(std::int32_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return locale.FormatNumber(value); }
    std::string operator()(const std::string& value) const { return value; }
    std::string operator()(const host::Ref<host::IHostObject>&) const { FailTypeMismatch(); }
};

struct BooleanOf {
    bool operator()(host::Empty) const { return false; }
    bool operator()(host::Null) const { FailNull(); }
    bool operator()(bool value) const { return value; }
    bool operator()(std::int16_t value) const { return value != 0; }
    bool operator()(std::int32_t value) const { return value != 0; }
    bool operator()(double value) const { return value != 0; }
    bool operator()(const std::string& value) const {
        if (EqualsInAnyCase(value, "true")) return true;
        if (EqualsInAnyCase(value, "false")) return false;
        FailTypeMismatch();
    }
    bool operator()(const host::Ref<host::IHostObject>&) const { FailTypeMismatch(); }
};

}  // namespace

void FailTypeMismatch() {
    throw host::Failure(host::kFailureTypeMismatch, "", "Type mismatch");
}

bool ToBoolean(const host::Variant& value) {
    return std::visit(BooleanOf{}, value);
}

double ToDouble(const host::Variant& value, host::IHostLocale& locale) {
    return std::visit(NumberOf{locale}, value);
}

std::int32_t ToLong(const host::Variant& value, host::IHostLocale& locale) {
    const double rounded = std::nearbyint(ToDouble(value, locale));
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(rounded) || rounded < Limits::min() || rounded > Limits::max())
        throw host::Failure(host::kFailureOverflow, "", "Overflow");
    return static_cast<std::int32_t>(rounded);
}

std::string ToText(const host::Variant& value, host::IHostLocale& locale) {
    return std::visit(TextOf{locale}, value);
}

std::string ToText(host::Variant&& value, host::IHostLocale& locale) {
    if (auto* const text = std::get_if<std::string>(&value)) return std::move(*text);
    return std::visit(TextOf{locale}, value);
}

}  // namespace gazetteer
