#include "desk/tables/DbfTable.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <string_view>
#include <utility>

#include "desk/tables/DbfReader.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/TextDecoder.h"
#include "host/Failure.h"

namespace desk {
namespace {

using host::Null;
using host::Variant;

/// Above this, a double cannot represent every integer.
constexpr double kLastExactInteger = 9007199254740992;

struct Cell {
    DbfSchema& schema;
    std::size_t field;
    std::string_view bytes;
    std::int64_t record;

    void NoteFault(const std::string& fault) const {
        schema.notes.AddFaultyValue(field, schema.fields[field].name, record, fault);
    }

    Variant IsNo(const std::string& kind, std::string_view text) const {
        std::string shown;
        schema.decoder->Decode(text, shown);
        NoteFault("\"" + shown + "\" is no " + kind + " and was taken for no value");
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

/// A comma is a decimal sign: dBase numbers have no group separators, but some writers follow the
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
    return NumberValue(value);
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
        cell.NoteFault("\"" + text + "\" has bytes that are no " + decoder.Name());
    return text;
}

/// Returns the value of a field; notes a fault once per field.
Variant ReadValue(DbfSchema& schema, std::size_t field, std::string_view record,
                  std::int64_t recordNumber) {
    const Cell cell = {schema, field, schema.fields[field].BytesIn(record), recordNumber};
    switch (schema.fields[field].kind) {
        case FieldKind::Text:
            return ReadText(cell);
        case FieldKind::Number:
            return ReadNumber(cell);
        case FieldKind::Date:
            return ReadDate(cell);
        case FieldKind::Logical:
            return ReadLogical(cell);
        case FieldKind::Memo:
        case FieldKind::Unknown:
            break;
    }
    return Null{};
}

class DbfRow : public host::IHostRow {
public:
    explicit DbfRow(std::shared_ptr<DbfSchema> schema) : schema_(std::move(schema)) {}

    void Take(const DbfReader& reader) {
        record_.assign(reader.Record());
        number_ = reader.Number();
    }

    host::Variant Value(std::int32_t index) const override {
        if (index < 0 || static_cast<std::size_t>(index) >= schema_->fields.size())
            throw host::Failure(
                host::kFailureNotFound, "DbfTable",
                schema_->file.Path() + " has no field number " + std::to_string(index) + ".");
        return ReadValue(*schema_, static_cast<std::size_t>(index), record_, number_);
    }
    void SetValue(std::int32_t, host::Variant) override { gis::FailReadOnly(schema_->file.Path()); }
    std::int32_t OID() const override { return number_; }

private:
    std::shared_ptr<DbfSchema> schema_;
    std::string record_;
    std::int32_t number_ = 0;
};

class DbfCursor : public host::IHostCursor {
public:
    DbfCursor(const std::shared_ptr<DbfSchema>& schema, bool recycling)
        : schema_(schema), reader_(*schema), recycling_(recycling) {}

    host::Ref<host::IHostRow> NextRow() override {
        if (!reader_.Next()) return nullptr;
        if (!row_ || !recycling_) row_ = std::make_shared<DbfRow>(schema_);
        row_->Take(reader_);
        return row_;
    }
    void InsertRow(const host::Ref<host::IHostRow>&) override {
        gis::FailReadOnly(schema_->file.Path());
    }
    void Flush() override {}

private:
    std::shared_ptr<DbfSchema> schema_;
    DbfReader reader_;
    bool recycling_;
    host::Ref<DbfRow> row_;
};

}  // namespace

DbfTable::DbfTable(const std::string& path) : schema_(std::make_shared<DbfSchema>(path)) {}

host::Ref<host::IHostFields> DbfTable::Fields() const {
    return HostFields(SourceFields());
}

std::vector<gis::SourceField> DbfTable::SourceFields() const {
    return {schema_->fields.begin(), schema_->fields.end()};
}

host::Ref<host::IHostCursor> DbfTable::Search(const host::Ref<host::IHostQueryFilter>& filter,
                                              bool recycling) {
    RequireEveryRow(filter);
    return std::make_shared<DbfCursor>(schema_, recycling);
}

std::int64_t DbfTable::LiveRecords() const {
    if (liveRecords_ >= 0) return liveRecords_;
    std::int64_t count = 0;
    for (DbfReader reader(*schema_); reader.Next();) ++count;
    return liveRecords_ = count;
}

std::string DbfTable::Encoding() const {
    return schema_->decoder->Name();
}

}  // namespace desk
