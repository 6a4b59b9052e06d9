// dBase tables: any bytes are opened, or fail with a message. Then all values must be readable.

#include <cstdint>

#include "Bytes.h"
#include "Checks.h"
#include "desk/tables/DbfTable.h"

namespace {

using fuzz::Require;
using fuzz::RequireText;

/// Separates the table from the content of its .cpg file in an input.
constexpr std::string_view kCpgMark = "\nCPG=";
/// Limits the values read: thousands of fields times thousands of records take long and find
/// nothing new.
constexpr int kMostValues = 100'000;

void RequireGoodValue(const host::Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value)) RequireText(*text, "a value");
}

void ReadFields(const desk::DbfTable& table) {
    const auto fields = table.Fields();
    for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
        const std::string name = fields->Field(i)->Name();
        RequireText(name, "the name of a field");
        const auto found = table.FindField(name);
        Require(found >= 0 && found <= i, "a field is not found under its name");
        Require(fields->FindField(name) == found, "table and fields find different fields");
    }
}

std::int64_t ReadRows(desk::DbfTable& table) {
    const auto fieldCount = table.Fields()->FieldCount();
    const auto cursor = table.Search(nullptr, false);
    const auto recycling = table.Search(nullptr, true);
    std::int64_t rows = 0;
    std::int64_t values = 0;
    while (const auto row = cursor->NextRow()) {
        ++rows;
        const auto same = recycling->NextRow();
        Require(same && same->OID() == row->OID(), "two cursors give different rows");
        for (std::int32_t i = 0; i < fieldCount && values < kMostValues; ++i, ++values) {
            const auto value = row->Value(i);
            RequireGoodValue(value);
            Require(same->Value(i) == value, "a value is not the same when it is read again");
        }
    }
    Require(!recycling->NextRow(), "a recycling cursor gives more rows");
    return rows;
}

void ReadTable(const std::string& path) {
    desk::DbfTable table(path);
    RequireText(table.Encoding(), "the encoding");
    RequireText(table.EncodingFrom(), "the source of the encoding");
    ReadFields(table);
    Require(ReadRows(table) == table.LiveRecords(), "not every record was read");
    for (const auto& warning : table.Notes().All()) RequireText(warning, "a warning");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto mark = input.rfind(kCpgMark);
    const std::string path = folder.Write("names.dbf", input.substr(0, mark));
    if (mark == std::string_view::npos)
        folder.Remove("names.cpg");
    else
        folder.Write("names.cpg", input.substr(mark + kCpgMark.size()));
    fuzz::Attempt([&] { ReadTable(path); });
    return 0;
}
