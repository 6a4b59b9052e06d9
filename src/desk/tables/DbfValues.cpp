#include "desk/tables/DbfValues.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <string>

#include "desk/tables/TextDecoder.h"

namespace desk {
namespace {

using host::Null;
using host::Variant;

/// From here on doubles pass over integers.
constexpr double kLastExactInteger = 9007199254740992;

struct Cell {
    DbfSchema& schema;
    std::size_t field;
    std::string_view bytes;
    std::int64_t record;

    Variant IsNo(const std::string& kind, std::string_view text) const {
        std::string shown;
        schema.decoder->Decode(text, shown);
        schema.NoteValue(field, record,
                         "\"" + shown + "\" is no " + kind + " and was taken for no value");
        return Null{};
    }
};

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks("\0\t ", 3);
    const std::size_t first = std::min(text.find_first_not_of(kBlanks), text.size());
    return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool IsAll(std::string_view text, std::string_view letters) {
    return text.find_first_not_of(letters) == std::string_view::npos;
}

template <class T>
bool Parse(std::string_view text, T& value) {
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data(), end, value);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

/// One comma is a decimal sign here: dBase numbers have no groups, but some writers follow the
/// user's locale.
Variant ReadNumber(const Cell& cell) {
    std::string text(Trimmed(cell.bytes));
    if (text.empty()) return Null{};
    std::ranges::replace(text, ',', '.');
    if (text.size() > 1 && text.front() == '+') text.erase(0, 1);
    double value = 0;
    if (!IsAll(text, "0123456789+-.eE") || !Parse(text, value))
        return cell.IsNo("number", Trimmed(cell.bytes));
    if (std::abs(value) >= kLastExactInteger && IsAll(text, "0123456789-")) return text;
    if (value >= std::numeric_limits<std::int32_t>::min() &&
        value <= std::numeric_limits<std::int32_t>::max() && value == std::trunc(value))
        return static_cast<std::int32_t>(value);
    return value;
}

Variant ReadDate(const Cell& cell) {
    const std::string_view text = Trimmed(cell.bytes);
    if (IsAll(text, "0")) return Null{};
    unsigned number = 0;
    const bool isNumber = Parse(text, number);
    const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(number / 10000)),
                                           std::chrono::month(number / 100 % 100),
                                           std::chrono::day(number % 100));
    if (!isNumber || text.size() != 8 || !date.ok()) return cell.IsNo("date", text);
    return std::string(text).insert(6, 1, '-').insert(4, 1, '-');
}

Variant ReadLogical(const Cell& cell) {
    if (cell.bytes.empty()) return Null{};
    if (IsAll(cell.bytes.substr(0, 1), "TtYy")) return true;
    if (IsAll(cell.bytes.substr(0, 1), "FfNn")) return false;
    return Null{};
}

Variant ReadText(const Cell& cell) {
    const TextDecoder& decoder = *cell.schema.decoder;
    std::string text;
    if (!decoder.DecodePadded(cell.bytes, text))
        cell.schema.NoteValue(cell.field, cell.record,
                              "\"" + text + "\" has bytes that are no " + decoder.Name());
    return text;
}

}  // namespace

host::Variant ReadValue(DbfSchema& schema, std::size_t field, std::string_view record,
                        std::int64_t recordNumber) {
    const Cell cell = {schema, field, schema.fields[field].BytesIn(record), recordNumber};
    switch (schema.fields[field].kind) {
        case DbfKind::Text:
            return ReadText(cell);
        case DbfKind::Number:
            return ReadNumber(cell);
        case DbfKind::Date:
            return ReadDate(cell);
        case DbfKind::Logical:
            return ReadLogical(cell);
        case DbfKind::Memo:
        case DbfKind::Unknown:
            break;
    }
    return Null{};
}

}  // namespace desk
