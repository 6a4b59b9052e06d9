#include <algorithm>
#include <iomanip>
#include <optional>
#include <sstream>

#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "desk/locale/IcuLocale.h"
#include "desk/tables/TablePath.h"
#include "support/Conversions.h"

namespace app {
namespace {

// The values of a row as the gazetteer shows them; nothing for null.
using Cells = std::vector<std::optional<std::string>>;

// Calls `take` with each row up to the limit.
void ForRows(gis::SourceTable& table, host::IHostLocale& locale, std::int64_t limit,
             const auto& take) {
    Cells cells(table.SourceFields().size());
    const auto rows = table.Search(nullptr, true);
    for (std::int64_t count = 0; limit < 0 || count < limit; ++count) {
        const auto row = rows->NextRow();
        if (!row) return;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const auto value = row->Value(static_cast<std::int32_t>(i));
            if (std::holds_alternative<host::Null>(value))
                cells[i].reset();
            else
                cells[i] = gazetteer::ToText(value, locale);
        }
        take(cells);
    }
}

void WriteRow(JsonAnswer& json, const Cells& cells) {
    json.BeginArray();
    for (const auto& cell : cells)
        if (cell)
            json.Text(*cell);
        else
            json.Null();
    json.EndArray();
}

void WriteTable(JsonAnswer& json, gis::SourceTable& table, host::IHostLocale& locale,
                const Options& options) {
    json.Member("file", options.table);
    json.Member("encoding", table.Encoding());
    json.Member("encodingFrom", table.EncodingFrom());
    json.Objects("fields", table.SourceFields(), [&](const gis::SourceField& field) {
        json.Member("name", field.name);
        json.Member("type", std::string_view(&field.type, 1));
        json.Member("length", field.length);
        json.Member("decimals", field.decimals);
    });
    json.Member("records", table.LiveRecords());
    json.Key("rows");
    json.BeginArray();
    ForRows(table, locale, options.limit, [&](const Cells& cells) { WriteRow(json, cells); });
    json.EndArray();
    // Last, because reading the rows adds warnings.
    json.Member("warnings", table.Notes().All());
}

void PrintText(gis::SourceTable& table, host::IHostLocale& locale, const Options& options) {
    Print("Encoding: " + table.Encoding() + " (" + table.EncodingFrom() +
          ")\nRecords: " + std::to_string(table.LiveRecords()) + "\nFields:");
    for (const auto& field : table.SourceFields()) {
        std::ostringstream line;
        line << "  " << std::left << std::setw(12) << field.name << ' ' << field.type << ' '
             << std::right << std::setw(3) << field.length << ' ' << field.decimals;
        Print(line.str());
    }
    ForRows(table, locale, options.limit, [](const Cells& cells) {
        std::string line;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            std::string cell = cells[i].value_or("");
            std::ranges::replace_if(
                cell, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
            line += (i == 0 ? "" : "\t") + cell;
        }
        Print(line);
    });
    for (const auto& warning : table.Notes().All()) Warn(warning);
}

}  // namespace

int Table(const Options& options) {
    desk::IcuLocale locale(options.locale);
    const auto opened = desk::OpenTable(desk::FindTable(options.table));
    auto& table = *opened;
    if (options.json)
        StreamAnswer(1, [&](JsonAnswer& json) { WriteTable(json, table, locale, options); });
    else
        PrintText(table, locale, options);
    return kDone;
}

}  // namespace app
