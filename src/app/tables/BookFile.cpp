#include "app/tables/BookFile.h"

#include <filesystem>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "desk/files/Files.h"
#include "desk/json/JsonWriter.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

struct KeyAndName {
    const char* key;
    const char* name;
};

constexpr KeyAndName kMaps = {"maps", "Maps"};
constexpr KeyAndName kSheet = {"sheet", "Map sheet"};
constexpr const char* kMapFrame = "Main map";

void WriteTexts(desk::JsonWriter& json, std::string_view key, const Labels& texts) {
    json.Key(key);
    json.BeginArray();
    for (const auto& text : texts) json.Text(text);
    json.EndArray();
}

// The path of a table, relative to a file.
std::string PathBeside(const std::string& file, const std::string& table) {
    if (desk::TablePath{table, {}}.IsConnection()) return table;
    const auto folder = std::filesystem::absolute(file).parent_path();
    return std::filesystem::absolute(table).lexically_proximate(folder).string();
}

void WriteSeries(desk::JsonWriter& json, const BookPlan& plan) {
    json.Key("series");
    json.BeginObject();
    json.Member("indexLayer", PathBeside(plan.book, plan.sheets));
    json.Member("firstPage", 1);
    json.Key("grids");
    json.BeginArray();
    json.BeginObject();
    json.Member("kind", std::string("index"));
    json.Member("visible", true);
    WriteTexts(json, "rows", plan.rows);
    WriteTexts(json, "columns", plan.columns);
    json.EndObject();
    json.EndArray();
    json.EndObject();
}

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

std::string BookText(const BookPlan& plan) {
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
    WriteSection(json, kMaps, plan.startPage, kSheet, SheetPages(plan.sheetCount), [&] {
        json.BeginObject();
        json.Member("kind", std::string("mapFrame"));
        json.Member("name", std::string(kMapFrame));
        WriteSeries(json, plan);
        json.EndObject();
    });
    WriteSection(json, {"back", "Index"}, plan.startPage + plan.sheetCount, {"index", "Gazetteer"},
                 {"index$1"}, [] {});
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
    json.Finish();
    return text;
}

}  // namespace

void CheckBookOutput(const std::string& book, const std::string& table,
                     const std::vector<std::string>& sources, bool force) {
    if (book.empty()) return;
    for (const auto& source : sources)
        if (IsOfTable(book, source))
            throw UsageError("The map book \"" + book +
                             "\" cannot be written: it would be made from itself.");
    CheckFolderOf(book);
    if (IsSameFile(book, table))
        throw UsageError("The file \"" + book + "\" cannot be both the table and the map book.");
    std::error_code ignored;
    if (!force && std::filesystem::exists(book, ignored))
        throw CommandError("The map book \"" + book + "\" exists already; --force replaces it.");
}

void WriteBook(const BookPlan& plan) {
    desk::ReplaceFile(plan.book, BookText(plan));
}

std::vector<std::string> LinkToWrittenBook() {
    return {"LinkToMapSeries=true", std::string("MapSeriesSectionKey=") + kMaps.key,
            std::string("MapSeriesTemplateKey=") + kSheet.key,
            std::string("MapSeriesFrameName=") + kMapFrame, "Page.FromDatabase=false"};
}

}  // namespace app
