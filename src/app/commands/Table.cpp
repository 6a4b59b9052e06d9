#include <cstdio>
#include <functional>
#include <memory>
#include <optional>

#include "app/commands/Commands.h"
#include "app/commands/ConsoleDialogs.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/JsonAnswer.h"
#include "desk/locale/IcuLocale.h"
#include "desk/tables/DbfTable.h"
#include "support/Conversions.h"

namespace app {
namespace {

struct TableOptions {
    std::string file;
    bool json = false;
    std::int64_t limit = -1;  ///< Rows shown; negative: all.
};

// The values of a row as the texts that a column would show; nothing for null.
using Cells = std::vector<std::optional<std::string>>;

// Hands over each row of the table up to the limit.
void ForRows(desk::DbfTable& table, host::IHostLocale& locale, std::int64_t limit,
             const std::function<void(const Cells&)>& take) {
    Cells cells(table.DbfFields().size());
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

void WriteTable(JsonAnswer& json, desk::DbfTable& table, host::IHostLocale& locale,
                const TableOptions& options) {
    json.Member("file", options.file);
    json.Member("encoding", table.Encoding());
    json.Member("encodingFrom", table.EncodingFrom());
    json.Objects("fields", table.DbfFields(), [&](const desk::DbfField& field) {
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
    // Values that are odd are known once they were read.
    json.Member("warnings", table.Warnings());
}

void PrintText(desk::DbfTable& table, host::IHostLocale& locale, const TableOptions& options) {
    std::printf("Encoding: %s (%s)\nRecords: %lld\nFields:\n", table.Encoding().c_str(),
                table.EncodingFrom().c_str(), static_cast<long long>(table.LiveRecords()));
    for (const auto& field : table.DbfFields())
        std::printf("  %-12s %c %3d %d\n", field.name.c_str(), field.type, field.length,
                    field.decimals);
    ForRows(table, locale, options.limit, [](const Cells& cells) {
        std::string line;
        for (const auto& cell : cells) {
            if (!line.empty()) line += '\t';
            line += cell.value_or("");
        }
        std::puts(line.c_str());
    });
    for (const auto& warning : table.Warnings()) Warn(warning);
}

int Table(const CommonOptions& common, const TableOptions& options) {
    desk::IcuLocale locale(common.locale);
    desk::DbfTable table(options.file);
    if (options.json)
        StreamAnswer(1, [&](JsonAnswer& json) { WriteTable(json, table, locale, options); });
    else
        PrintText(table, locale, options);
    return 0;
}

}  // namespace

void AddTable(Arguments& program) {
    const auto options = std::make_shared<TableOptions>();
    auto command =
        AddCommand(program, "table", "Show how a dBase table is read",
                   [options](const CommonOptions& common) { return Table(common, *options); });
    command.Path("FILE", options->file, "The table")
        .Required()
        .Flag("--json", options->json, "As JSON")
        .Count("--limit", options->limit, "Show at most this many rows")
        .Help(kTableHelp);
}

}  // namespace app
