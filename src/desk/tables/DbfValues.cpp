#include "desk/tables/DbfValues.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

#include "desk/tables/DbfNotes.h"
#include "desk/tables/TextDecoder.h"

namespace desk {
namespace {

using host::Null;
using host::Variant;

/// From here on doubles pass over integers.
constexpr std::int64_t kLastExactInteger = std::int64_t{1} << 53;
constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
/// Julian day number of 1970-01-01.
constexpr std::int32_t kUnixJulianDay = 2440588;
constexpr std::int32_t kLastJulianDay = 5373484;  ///< 9999-12-31.
constexpr std::int32_t kDayMilliseconds = 24 * 60 * 60 * 1000;

struct Cell {
    const DbfSchema& schema;
    std::size_t index;
    std::string_view bytes;
    std::int64_t record;

    const DbfField& Field() const { return schema.fields[index]; }
    Variant Faulty(const std::string& fault) const {
        schema.notes->AddValue(index, Field().name, record, fault);
        return Null{};
    }
};

std::string_view Trimmed(std::string_view text) {
    const auto isBlank = [](char letter) {
        return letter == ' ' || letter == '\0' || letter == '\t';
    };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view UpToZeros(std::string_view text) {
    text = text.substr(0, text.find('\0'));
    constexpr std::string_view kBlanks = "        ";  // Fields are padded, most by far more.
    while (text.ends_with(kBlanks)) text.remove_suffix(kBlanks.size());
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

Variant FromInteger(std::int64_t value) {
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(value);
    if (value >= -kLastExactInteger && value <= kLastExactInteger)
        return static_cast<double>(value);
    return std::to_string(value);
}

Variant FromDouble(double value) {
    if (!std::isfinite(value)) return Null{};
    if (std::abs(value) <= std::numeric_limits<std::int32_t>::max() && value == std::trunc(value))
        return static_cast<std::int32_t>(value);
    return value;
}

/// One comma is a decimal sign here: dBase numbers have no groups, but some writers follow the
/// user's locale.
bool ParseDecimal(std::string_view text, double& value) {
    std::array<char, 256> plain{};
    if (text.size() > plain.size()) return false;
    char* const end = std::replace_copy(text.begin(), text.end(), plain.begin(), ',', '.');
    const auto parsed = std::from_chars(plain.data(), end, value);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

Variant ReadNumber(const Cell& cell) {
    std::string_view text = Trimmed(cell.bytes);
    if (text.empty()) return Null{};
    const std::string_view written = text;
    if (text.size() > 1 && text.front() == '+') text.remove_prefix(1);
    const bool isWhole =
        text.find_first_not_of("0123456789", text.front() == '-' ? 1 : 0) == std::string_view::npos;
    if (isWhole) {
        std::int64_t value = 0;
        const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
        if (parsed.ec == std::errc()) return FromInteger(value);
        if (parsed.ec == std::errc::result_out_of_range) return std::string(text);
    }
    double value = 0;
    if (text.find_first_not_of("0123456789+-.,eE") == std::string_view::npos &&
        ParseDecimal(text, value))
        return FromDouble(value);
    std::string shown;
    cell.schema.decoder->Decode(written, shown);
    return cell.Faulty("\"" + shown + "\" is no number and was taken for no value");
}

template <class T>
T FromBytes(std::string_view bytes, std::endian order) {
    T value{};
    auto* memory = reinterpret_cast<char*>(&value);
    std::copy_n(bytes.begin(), sizeof(T), memory);
    if (order != std::endian::native) std::reverse(memory, memory + sizeof(T));
    return value;
}

/// A null is all zeros, below every number.
Variant ReadInteger7(std::string_view bytes) {
    const auto raw = FromBytes<std::uint32_t>(bytes, std::endian::big);
    if (raw == 0) return Null{};
    return std::bit_cast<std::int32_t>(raw ^ 0x80000000U);
}

Variant ReadDouble7(std::string_view bytes) {
    const auto raw = FromBytes<std::uint64_t>(bytes, std::endian::big);
    if (raw == 0) return Null{};
    return FromDouble(std::bit_cast<double>((raw & kSignBit) != 0 ? raw ^ kSignBit : ~raw));
}

Variant ReadDoubleBig(std::string_view bytes) {
    return FromDouble(
        std::bit_cast<double>(FromBytes<std::uint64_t>(bytes, std::endian::big) ^ kSignBit));
}

Variant ReadCurrency(std::string_view bytes) {
    const auto raw = FromBytes<std::int64_t>(bytes, std::endian::little);
    if (raw % 10000 == 0) return FromInteger(raw / 10000);
    return static_cast<double>(raw) / 10000.0;
}

Variant ReadDate(const Cell& cell) {
    const std::string_view text = Trimmed(cell.bytes);
    if (text.empty() || text.find_first_not_of('0') == std::string_view::npos) return Null{};
    int number = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    const std::chrono::year_month_day date(
        std::chrono::year(number / 10000),
        std::chrono::month(static_cast<unsigned>(number / 100 % 100)),
        std::chrono::day(static_cast<unsigned>(number % 100)));
    if (text.size() != 8 || number < 0 || parsed.ptr != text.data() + text.size() || !date.ok()) {
        std::string shown;
        cell.schema.decoder->Decode(text, shown);
        return cell.Faulty("\"" + shown + "\" is no date and was taken for no value");
    }
    std::string result(text);
    return result.insert(6, 1, '-').insert(4, 1, '-');
}

Variant ReadTimestamp(const Cell& cell) {
    const auto day = FromBytes<std::int32_t>(cell.bytes.substr(0, 4), std::endian::little);
    const auto time = FromBytes<std::int32_t>(cell.bytes.substr(4, 4), std::endian::little);
    if (day == 0 || Trimmed(cell.bytes).empty()) return Null{};
    if (day < 0 || day > kLastJulianDay || time < 0 || time > kDayMilliseconds)
        return cell.Faulty("the time is out of range and was taken for no value");
    const std::chrono::year_month_day date(
        std::chrono::sys_days(std::chrono::days(day - kUnixJulianDay)));
    const int seconds = (time + 500) / 1000;  // Times are stored a little off whole seconds.
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
    return std::string(text.data());
}

Variant ReadLogical(const Cell& cell) {
    const char letter = cell.bytes.empty() ? ' ' : cell.bytes.front();
    if (std::strchr("TtYy", letter) != nullptr && letter != '\0') return true;
    if (std::strchr("FfNn", letter) != nullptr && letter != '\0') return false;
    return Null{};
}

Variant ReadText(const Cell& cell, std::string_view bytes) {
    const TextDecoder& decoder = *cell.schema.decoder;
    std::string text;
    bool clean = true;
    if (decoder.IsAsciiBased()) {
        clean = decoder.Decode(UpToZeros(bytes), text);
    } else {
        clean = decoder.Decode(bytes, text);
        text.resize(UpToZeros(text).size());
    }
    if (!clean) cell.Faulty("\"" + text + "\" has bytes that are no " + cell.schema.encoding);
    return text;
}

bool Flag(const DbfSchema& schema, std::string_view record, std::int32_t bit) {
    if (bit < 0 || schema.nullFlagsOffset < 0 || bit / 8 >= schema.nullFlagsLength) return false;
    const auto flags =
        static_cast<unsigned char>(record[static_cast<std::size_t>(schema.nullFlagsOffset) +
                                          static_cast<std::size_t>(bit / 8)]);
    return (flags >> (bit % 8) & 1) != 0;
}

/// The last byte of a text that does not fill its field is the text's length.
Variant ReadVarText(const Cell& cell, std::string_view record) {
    std::string_view bytes = cell.bytes;
    if (!bytes.empty() && Flag(cell.schema, record, cell.Field().lengthBit))
        bytes = bytes.substr(
            0, std::min<std::size_t>(static_cast<unsigned char>(bytes.back()), bytes.size() - 1));
    return ReadText(cell, bytes);
}

}  // namespace

host::Variant ReadValue(const DbfSchema& schema, std::size_t field, std::string_view record,
                        std::int64_t recordNumber) {
    const DbfField& form = schema.fields[field];
    const Cell cell = {
        schema, field,
        record.substr(static_cast<std::size_t>(form.offset), static_cast<std::size_t>(form.length)),
        recordNumber};
    if (Flag(schema, record, form.nullBit)) return Null{};
    switch (form.kind) {
        case DbfKind::Text:
            return ReadText(cell, cell.bytes);
        case DbfKind::VarText:
            return ReadVarText(cell, record);
        case DbfKind::Number:
            return ReadNumber(cell);
        case DbfKind::Integer:
            return FromBytes<std::int32_t>(cell.bytes, std::endian::little);
        case DbfKind::Currency:
            return ReadCurrency(cell.bytes);
        case DbfKind::Double:
            return FromDouble(FromBytes<double>(cell.bytes, std::endian::little));
        case DbfKind::Integer7:
            return ReadInteger7(cell.bytes);
        case DbfKind::Double7:
            return ReadDouble7(cell.bytes);
        case DbfKind::DoubleBig:
            return ReadDoubleBig(cell.bytes);
        case DbfKind::Timestamp:
            return ReadTimestamp(cell);
        case DbfKind::Date:
            return ReadDate(cell);
        case DbfKind::Logical:
            return ReadLogical(cell);
        case DbfKind::Memo:
        case DbfKind::System:
        case DbfKind::Unknown:
            break;
    }
    return Null{};
}

}  // namespace desk
