#include <charconv>
#include <filesystem>

#include "app/commands/Commands.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "desk/files/Files.h"
#include "desk/json/JsonWriter.h"
#include "desk/tables/TablePath.h"
#include "support/Text.h"

namespace app {
namespace {

using Labels = std::vector<std::string>;

constexpr std::size_t kMostLabels = 1000;

[[noreturn]] void FailLabels(const std::string& option, const std::string& text) {
    throw UsageError(option + ' ' + Shown(text) +
                     ": labels are given as A..H, 1..10 or with commas, at most 1000.");
}

std::string LabelAt(long number, bool isLetter) {
    return isLetter ? std::string(1, static_cast<char>(number)) : std::to_string(number);
}

// Parses "A..H", "1..10", or labels with commas between them.
Labels ParseLabels(const std::string& option, const std::string& text) {
    const auto dots = text.find("..");
    if (dots == std::string::npos) {
        auto labels = gazetteer::Split(text, ',');
        if (labels.size() > kMostLabels) FailLabels(option, text);
        return labels;
    }
    const auto end = [&](std::string_view piece) -> std::pair<long, bool> {
        if (piece.size() == 1 && std::isalpha(static_cast<unsigned char>(piece[0])))
            return {piece[0], true};
        long number = -1;
        const auto parsed = std::from_chars(piece.data(), piece.data() + piece.size(), number);
        if (parsed.ptr != piece.data() + piece.size() || number < 0) FailLabels(option, text);
        return {number, false};
    };
    const auto [first, firstIsLetter] = end(std::string_view(text).substr(0, dots));
    const auto [last, lastIsLetter] = end(std::string_view(text).substr(dots + 2));
    if (firstIsLetter != lastIsLetter || last < first ||
        last - first >= static_cast<long>(kMostLabels))
        FailLabels(option, text);
    Labels labels;
    for (long number = first; number <= last; ++number)
        labels.push_back(LabelAt(number, firstIsLetter));
    return labels;
}

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

void WriteSeries(desk::JsonWriter& json, const Options& options, const Labels& rows,
                 const Labels& columns) {
    json.Key("series");
    json.BeginObject();
    json.Member("indexLayer", PathBeside(options.book, options.sheets));
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
    if (IsOfTable(options.book, desk::FindTable(options.sheets).File()))
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
