#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/ConsoleDialogs.h"
#include "app/commands/Commands.h"
#include "desk/locale/IcuLocale.h"
#include "desk/tables/DbfTable.h"
#include "support/Conversions.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

// A value as the text that a column would show; null where there is none.
Json CellJson(const host::Variant& value, host::IHostLocale& locale) {
    if (std::holds_alternative<host::Null>(value)) return nullptr;
    return gazetteer::ToText(value, locale);
}

// Hands over each row of the table up to the limit, as texts.
template <class Take>
void ForRows(desk::DbfTable& table, host::IHostLocale& locale, std::int64_t limit, Take take) {
    const auto fields = static_cast<std::int32_t>(table.DbfFields().size());
    const auto rows = table.Search(nullptr, true);
    for (std::int64_t count = 0; limit < 0 || count < limit; ++count) {
        const auto row = rows->NextRow();
        if (!row) return;
        Json cells = Json::array();
        for (std::int32_t i = 0; i < fields; ++i) cells.push_back(CellJson(row->Value(i), locale));
        take(std::move(cells));
    }
}

void PrintJson(desk::DbfTable& table, host::IHostLocale& locale, const TableOptions& options) {
    Json json = {{"file", options.file},
                 {"encoding", table.Encoding()},
                 {"encodingFrom", table.EncodingFrom()},
                 {"fields", Json::array()},
                 {"records", table.LiveRecords()},
                 {"rows", Json::array()},
                 {"warnings", Json::array()}};
    for (const auto& field : table.DbfFields())
        json["fields"].push_back({{"name", field.name},
                                  {"type", std::string(1, field.type)},
                                  {"length", field.length},
                                  {"decimals", field.decimals}});
    ForRows(table, locale, options.limit,
            [&](Json row) { json["rows"].push_back(std::move(row)); });
    json["warnings"] = table.Warnings();
    std::puts(json.dump(1, ' ', false, Json::error_handler_t::replace).c_str());
}

void PrintText(desk::DbfTable& table, host::IHostLocale& locale, const TableOptions& options) {
    std::printf("Encoding: %s (%s)\nRecords: %lld\nFields:\n", table.Encoding().c_str(),
                table.EncodingFrom().c_str(), static_cast<long long>(table.LiveRecords()));
    for (const auto& field : table.DbfFields())
        std::printf("  %-12s %c %3d %d\n", field.name.c_str(), field.type, field.length,
                    field.decimals);
    ForRows(table, locale, options.limit, [](const Json& row) {
        std::string line;
        for (const auto& cell : row) {
            if (!line.empty()) line += '\t';
            if (!cell.is_null()) line += cell.get<std::string>();
        }
        std::puts(line.c_str());
    });
    for (const auto& warning : table.Warnings()) Warn(warning);
}

}  // namespace

int Table(const CommonOptions& common, const TableOptions& options) {
    desk::IcuLocale locale(common.locale);
    desk::DbfTable table(options.file);
    if (options.json)
        PrintJson(table, locale, options);
    else
        PrintText(table, locale, options);
    return 0;
}

}  // namespace app
