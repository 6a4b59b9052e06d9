#include "gis/tables/Values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

#include "characters/Utf8.h"
#include "desk/tables/PlainObjects.h"

namespace gis {
namespace {

using host::Null;
using host::Variant;

/// Above this, a double cannot represent every integer.
constexpr std::int64_t kLastExactInteger = 9007199254740992;

FieldKind KindOf(const OGRFieldDefn& field) {
    switch (field.GetType()) {
        case OFTInteger:
            return field.GetSubType() == OFSTBoolean ? FieldKind::Logical : FieldKind::Number;
        case OFTInteger64:
        case OFTReal:
            return FieldKind::Number;
        case OFTDate:
            return FieldKind::Date;
        case OFTBinary:
            return FieldKind::Memo;
        default:  // Times and lists have no kind of their own.
            return FieldKind::Text;
    }
}

char LetterOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::Number:
            return 'N';
        case FieldKind::Date:
            return 'D';
        case FieldKind::Logical:
            return 'L';
        case FieldKind::Memo:
            return 'B';
        case FieldKind::Text:
        case FieldKind::Unknown:
            break;
    }
    return 'C';
}

std::string Trimmed(const char* text) {
    std::string trimmed = text;
    trimmed.erase(trimmed.find_last_not_of(' ') + 1);
    return trimmed;
}

/// Returns the text with U+FFFD for bytes that are not UTF-8; false if there were some.
bool MakeUtf8(std::string& text) {
    std::string valid;
    bool isValid = true;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        if (characters::NextCodePoint(text, at) == characters::kNotUtf8) {
            valid += kNoUtf8;
            isValid = false;
        } else {
            valid.append(text, start, at - start);
        }
    }
    if (!isValid) text = std::move(valid);
    return isValid;
}

/// Returns the number that is written exactly so; Null if there is none.
Variant NumberWritten(std::string_view text) {
    constexpr std::size_t kLongest = 24;  // Characters of a double.
    if (text.empty() || text.size() > kLongest) return Null{};
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(number)) return Null{};
    std::array<char, 32> written{};
    const auto plain =
        std::to_chars(written.begin(), written.end(), number, std::chars_format::fixed);
    if (plain.ec != std::errc() || std::string_view(written.data(), plain.ptr) != text)
        return Null{};
    return desk::NumberValue(number);
}

Variant ReadInteger(std::int64_t number) {
    if (number >= kLastExactInteger || number <= -kLastExactInteger) return std::to_string(number);
    return desk::NumberValue(static_cast<double>(number));
}

/// GDAL's number of a time zone: 0 and 1 for none, else 100 and the quarters of an hour from UTC.
std::string ZoneText(int zone) {
    constexpr int kUtc = 100;
    if (zone <= 1) return {};
    if (zone == kUtc) return "UTC";
    const int minutes = std::abs(zone - kUtc) * 15;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%c%02d:%02d", zone < kUtc ? '-' : '+', minutes / 60,
                  minutes % 60);
    return text.data();
}

std::string ReadTime(const OGRFeature& feature, int index, OGRFieldType type,
                     std::string& zoneText) {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    float second = 0;
    int zone = 0;
    feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone);
    zoneText = ZoneText(zone);
    std::array<char, 32> date{};
    std::array<char, 32> time{};
    std::snprintf(date.data(), date.size(), "%04d-%02d-%02d", year, month, day);
    std::snprintf(time.data(), time.size(), "%02d:%02d:%02d", hour, minute,
                  static_cast<int>(second));
    if (type == OFTDate) return date.data();
    if (type == OFTTime) return time.data();
    return std::string(date.data()) + ' ' + time.data();
}

std::string ReadList(const OGRFeature& feature, int index) {
    char** const parts = feature.GetFieldAsStringList(index);
    std::string list;
    for (char** part = parts; part != nullptr && *part != nullptr; ++part)
        list += (part == parts ? "" : ", ") + std::string(*part);
    return list;
}

}  // namespace

LayerFields DescribeFields(const OGRFeatureDefn& layer, bool isUntyped) {
    LayerFields described{isUntyped, {}};
    for (int i = 0; i < layer.GetFieldCount(); ++i) {
        const OGRFieldDefn& field = *layer.GetFieldDefn(i);
        const FieldKind kind = KindOf(field);
        std::string name = field.GetNameRef();
        MakeUtf8(name);
        described.fields.push_back(
            {std::move(name), LetterOf(kind), field.GetWidth(), field.GetPrecision(), kind});
    }
    return described;
}

Variant ReadValue(const LayerFields& fields, const OGRFeature& feature, std::size_t field,
                  TableNotes& notes) {
    const int index = static_cast<int>(field);
    const OGRFieldType type = feature.GetFieldDefnRef(index)->GetType();
    const FieldKind kind = fields.fields[field].kind;
    const auto note = [&](const std::string& fault) {
        notes.AddFaultyValue(field, fields.fields[field].name, feature.GetFID(), fault);
    };
    if (kind == FieldKind::Memo) return Null{};
    if (!feature.IsFieldSetAndNotNull(index))
        return kind == FieldKind::Text ? Variant(std::string()) : Variant(Null{});
    switch (type) {
        case OFTInteger:
            if (kind == FieldKind::Logical) return feature.GetFieldAsInteger(index) != 0;
            return feature.GetFieldAsInteger(index);
        case OFTInteger64:
            return ReadInteger(feature.GetFieldAsInteger64(index));
        case OFTReal: {
            const double number = feature.GetFieldAsDouble(index);
            if (std::isfinite(number)) return desk::NumberValue(number);
            note("\"" + std::to_string(number) + "\" is no number and was taken for no value");
            return Null{};
        }
        case OFTDate:
        case OFTTime:
        case OFTDateTime: {
            std::string zone;
            std::string time = ReadTime(feature, index, type, zone);
            if (!zone.empty()) note("the time zone of \"" + time + ' ' + zone + "\" is left out");
            return time;
        }
        case OFTIntegerList:
        case OFTInteger64List:
        case OFTRealList:
        case OFTStringList:
            return ReadList(feature, index);
        default:
            break;
    }
    std::string text = Trimmed(feature.GetFieldAsString(index));
    if (!MakeUtf8(text)) note("\"" + text + "\" has " + kHasNoUtf8);
    if (!fields.isUntyped) return text;
    const Variant number = NumberWritten(text);
    return std::holds_alternative<Null>(number) ? Variant(text) : number;
}

std::string WholeText(const Variant& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) return *text;
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    if (const auto* const flag = std::get_if<bool>(&value)) return *flag ? "True" : "False";
    std::array<char, 32> text{};
    const auto* const real = std::get_if<double>(&value);
    return real == nullptr
               ? std::string()
               : std::string(text.data(), std::to_chars(text.begin(), text.end(), *real).ptr);
}

}  // namespace gis
