#include "desk_tables/ForeignLines.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <glib.h>
#include <nlohmann/json.hpp>
#include <variant>

namespace desk {
namespace {

double AsDouble(const host::Variant& value) {
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return *whole;
    if (const auto* text = std::get_if<std::string>(&value)) return std::stod(*text);
    return std::get<double>(value);
}

/// Digits as that reading's language prints floats: plain from 1e-4 up to 1e16, with a fraction.
std::string FloatText(double value) {
    std::array<char, 64> buffer{};
    const double size = value < 0 ? -value : value;
    const bool plain = size == 0 || (size >= 1e-4 && size < 1e16);
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                   plain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    std::string text(buffer.data(), end);
    if (plain && text.find('.') == std::string::npos) text += ".0";
    return text;
}

std::string IntegerText(const host::Variant& value) {
    if (const auto* digits = std::get_if<std::string>(&value)) return *digits;
    return std::to_string(static_cast<std::int64_t>(AsDouble(value)));
}

std::string ValueText(const host::Variant& value, const DbfField& field) {
    const auto* text = std::get_if<std::string>(&value);
    if (std::holds_alternative<host::Null>(value) || (text != nullptr && text->empty()))
        return "null";
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "\"T\"" : "\"F\"";
    if (field.type == 'N' || field.type == 'F')
        return field.decimals == 0 && field.length < 19 ? IntegerText(value)
                                                        : FloatText(AsDouble(value));
    if (text == nullptr) return "\"\"";
    std::string shown = text->substr(std::min(text->find_first_not_of(' '), text->size()));
    if (field.type == 'D') shown[4] = shown[7] = '/';
    return nlohmann::json(shown).dump();
}

}  // namespace

std::string HashRecords(DbfTable& table) {
    std::string lines;
    const auto cursor = table.Search(nullptr, true);
    while (const auto row = cursor->NextRow()) {
        std::string line;
        std::int32_t index = 0;
        for (const DbfField& field : table.DbfFields())
            line += (index == 0 ? "" : ", ") + ValueText(row->Value(index), field), ++index;
        lines += "[" + line + "]\n";
    }
    gchar* digest = g_compute_checksum_for_data(
        G_CHECKSUM_SHA256, reinterpret_cast<const guchar*>(lines.data()), lines.size());
    std::string hash = digest;
    g_free(digest);
    return hash;
}

}  // namespace desk
