#include <filesystem>

#include "app/commands/Commands.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/tables/Labels.h"
#include "desk/files/Files.h"
#include "desk/json/JsonWriter.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

void WriteTexts(desk::JsonWriter& json, std::string_view key, const Labels& texts) {
    json.Key(key);
    json.BeginArray();
    for (const auto& text : texts) json.Text(text);
    json.EndArray();
}

void WriteSeries(desk::JsonWriter& json, const Options& options, const Labels& rows,
                 const Labels& columns) {
    json.Key("series");
    json.BeginObject();
    const auto folder = std::filesystem::absolute(options.book).parent_path();
    json.Member("indexLayer",
                std::filesystem::absolute(options.sheets).lexically_proximate(folder).string());
    json.Member("firstPage", 1);
    json.Key("grids");
    json.BeginArray();
    json.BeginObject();
    json.Member("kind", std::string("index"));
    json.Member("visible", true);
    WriteTexts(json, "rows", rows);
    WriteTexts(json, "columns", columns);
    json.EndObject();
    json.EndArray();
    json.EndObject();
}

struct KeyAndName {
    const char* key;
    const char* name;
};

void WriteKeyAndName(desk::JsonWriter& json, const KeyAndName& names) {
    json.BeginObject();
    json.Member("key", std::string(names.key));
    json.Member("name", std::string(names.name));
}

// Writes a section with one template; its layout is written by the function.
void WriteSection(desk::JsonWriter& json, const KeyAndName& section, std::int64_t startPage,
                  const KeyAndName& itsTemplate, const Labels& pages, const auto& writeLayout) {
    WriteKeyAndName(json, section);
    json.Member("startPage", startPage);
    WriteTexts(json, "pages", pages);
    json.Key("templates");
    json.BeginArray();
    WriteKeyAndName(json, itsTemplate);
    json.Key("layout");
    json.BeginArray();
    writeLayout();
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
}

Labels SheetPages(std::int64_t sheets) {
    Labels pages;
    for (std::int64_t page = 1; page <= sheets; ++page)
        pages.push_back("sheet$" + std::to_string(page));
    return pages;
}

std::string BookText(const Options& options, std::int64_t sheets) {
    const auto rows = ParseLabels("--row-labels", options.rowLabels);
    const auto columns = ParseLabels("--column-labels", options.columnLabels);
    std::string text;
    desk::JsonWriter json([&](std::string_view piece) { text += piece; }, 1);
    json.BeginObject();
    json.Member("currentTemplate", std::string("index"));
    json.Key("books");
    json.BeginArray();
    json.BeginObject();
    json.Member("key", std::string("atlas"));
    json.Key("sections");
    json.BeginArray();
    WriteSection(json, {"maps", "Maps"}, options.startPage, {"sheet", "Map sheet"},
                 SheetPages(sheets), [&] {
                     json.BeginObject();
                     json.Member("kind", std::string("mapFrame"));
                     json.Member("name", std::string("Main map"));
                     WriteSeries(json, options, rows, columns);
                     json.EndObject();
                 });
    WriteSection(json, {"back", "Index"}, options.startPage + sheets, {"index", "Gazetteer"},
                 {"index$1"}, [] {});
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
    json.Finish();
    return text;
}

}  // namespace

int BookNew(const Options& options) {
    if (IsOfTable(options.book, options.sheets))
        throw UsageError("The file \"" + options.book +
                         "\" cannot be written: the map book is made from it.");
    std::error_code ignored;
    if (!options.force && std::filesystem::exists(options.book, ignored))
        throw CommandError("The map book file \"" + options.book +
                           "\" exists already; --force replaces it.");
    const std::int64_t sheets = desk::OpenTable(desk::FindTable(options.sheets))->LiveRecords();
    if (sheets == 0)
        throw CommandError("The table of map sheets \"" + options.sheets + "\" has no records.");
    desk::ReplaceFile(options.book, BookText(options, sheets));
    return kDone;
}

}  // namespace app
