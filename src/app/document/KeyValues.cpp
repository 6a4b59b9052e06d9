#include "app/document/KeyValues.h"

#include <charconv>

#include "app/document/Errors.h"
#include "app/document/SymbolValues.h"
#include "model/Lengths.h"

namespace app {
namespace {

using gazetteer::ValueKind;

[[noreturn]] void FailForm(const std::string& key, const std::string& value, const char* form) {
    throw UsageError(key + "=" + Shown(value) + ": the value must be " + form + ".");
}

host::Variant ParseLong(const std::string& key, const std::string& value) {
    std::int32_t number = 0;
    const char* const last = value.data() + value.size();
    const auto [end, error] = std::from_chars(value.data(), last, number);
    if (error != std::errc() || end != last) FailForm(key, value, "a whole number");
    return number;
}

host::Variant Object(const host::Ref<host::IHostObject>& object) {
    return object;
}

}  // namespace

Assignment ParseAssignment(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageError("\"" + text + "\" is not of the form KEY=VALUE.");
    Assignment assignment{"", text.substr(0, equals), text.substr(equals + 1)};
    const auto dot = assignment.key.rfind('.');
    if (dot != std::string::npos) {
        assignment.column = assignment.key.substr(0, dot);
        assignment.key.erase(0, dot + 1);
        if (assignment.column.empty())
            throw UsageError("\"" + text + "\" names no column before the dot.");
    }
    return assignment;
}

host::Variant ParseValue(host::IHost& host, const std::string& key, ValueKind kind,
                         const std::string& value) {
    switch (kind) {
        case ValueKind::Boolean:
            if (value != "true" && value != "false") FailForm(key, value, "true or false");
            return value == "true";
        case ValueKind::Integer:
        case ValueKind::Long:
            return ParseLong(key, value);
        case ValueKind::Double: {
            const auto number = ParseDecimal(value);
            if (!number) FailForm(key, value, "a decimal number such as 1.75");
            if (!gazetteer::IsLength(*number))
                FailForm(key, value, "a number of inches from -1000 to 1000");
            return *number;
        }
        case ValueKind::TextSymbol: {
            const auto symbol = ParseTextSymbol(host, value);
            if (!symbol)
                FailForm(key, value,
                         "a font such as \"DejaVu Sans,10,bold,#B00000\" (FAMILY,SIZE[,bold]"
                         "[,#RRGGBB], SIZE at most 1000 and at least 0.1)");
            return Object(symbol);
        }
        case ValueKind::FillSymbol: {
            const auto symbol = ParseFillSymbol(host, value);
            if (!symbol) FailForm(key, value, "a colour such as #E1E1E1");
            return Object(symbol);
        }
        case ValueKind::String:
        case ValueKind::Set:
            break;
    }
    return value;
}

std::string ValueText(const host::Variant& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* object = std::get_if<host::Ref<host::IHostObject>>(&value)) {
        if (const auto symbol = host::As<host::IHostTextSymbol>(*object))
            return TextSymbolText(*symbol);
        if (const auto fill = host::As<host::IHostFillSymbol>(*object))
            return ColorText(fill->Color()->RGB());
    }
    return {};
}

}  // namespace app
