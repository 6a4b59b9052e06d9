#include <cstdio>
#include <ranges>

#include "app/commands/Commands.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "app/document/RunTexts.h"
#include "app/document/SettingsEdit.h"
#include "model/Settings.h"
#include "support/Conversions.h"

namespace app {
namespace {

using gazetteer::ToObject;
using host::IHostPropertySet;

void WritePage(JsonAnswer& json, gazetteer::CVNGazetteerManager& manager, std::int32_t page) {
    const auto rows = gazetteer::SetUnder(*manager.Working().pageGroups, std::to_string(page));
    json.Member("page", page);
    json.Member("name", std::get<std::string>(manager.PageName(page)));
    json.Member("first", manager.FirstListing(page));
    json.Member("last", manager.LastListing(page));
    json.Member("rows", gazetteer::NamesOf(*rows));
}

void WriteListings(JsonAnswer& json, const IHostPropertySet& listings) {
    const auto columns = listings.AllItems();
    std::vector<host::PropertyItems> cells;
    for (const auto& column : columns.values)
        cells.push_back(ToObject<IHostPropertySet>(column)->AllItems());
    const std::size_t count = cells.empty() ? 0 : cells.front().names.size();
    json.Objects("listings", std::views::iota(std::size_t{0}, count), [&](std::size_t row) {
        json.Member("row", cells.front().names[row]);
        json.Object("cells", [&] {
            for (std::size_t i = 0; i < cells.size(); ++i)
                if (row < cells[i].values.size())
                    json.Member(columns.names[i], std::get<std::string>(cells[i].values[row]));
        });
    });
}

void WriteResults(JsonAnswer& json, gazetteer::CVNGazetteerManager& manager) {
    const std::int32_t pages = manager.Working().pageCount;
    json.Member("drawable", true);
    json.Member("defaultPage", manager.BoundSettings().defaultPage);
    json.Member("pageCount", pages);
    json.Member("columns", gazetteer::NamesOf(*manager.BoundSettings().columnDisplayOrder));
    json.Objects("pages", std::views::iota(1, pages + 1),
                 [&](std::int32_t page) { WritePage(json, manager, page); });
    WriteListings(json, *manager.Working().listings);
}

// Writes the keys of WriteResults for a gazetteer without results.
void WriteNothing(JsonAnswer& json) {
    json.Member("drawable", false);
    json.Member("defaultPage", 0);
    json.Member("pageCount", 0);
    for (const char* key : {"columns", "pages", "listings"})
        json.Member(key, std::vector<std::string>());
}

void Print(gazetteer::CVNGazetteerManager& manager, bool drawable,
           const gazetteer::Findings& reasons) {
    if (!drawable) {
        std::puts(reasons.empty() ? "The gazetteer has no page."
                                  : UndrawableLines(reasons).c_str());
        return;
    }
    std::printf("Pages: %d\nDefault page: %d\n", manager.Working().pageCount,
                manager.BoundSettings().defaultPage);
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page)
        std::printf("%5d %s\n", page, std::get<std::string>(manager.PageName(page)).c_str());
}

void WriteValue(JsonAnswer& json, const std::string& name, const host::Variant& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return json.Member(name, *flag);
    if (const auto* number = std::get_if<double>(&value)) return json.Member(name, *number);
    if (const auto* version = std::get_if<std::int16_t>(&value)) return json.Member(name, *version);
    json.Member(name, ValueText(value));
}

void WriteColumn(JsonAnswer& json, const gazetteer::Settings& settings, const std::string& name) {
    json.Member("name", name);
    json.Member("sorted", std::get<bool>(settings.columnSortOrder->Item(name)));
    const auto items = gazetteer::SetUnder(*settings.columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        WriteValue(json, items.names[i], items.values[i]);
}

void PrintColumn(const gazetteer::Settings& settings, const std::string& name) {
    std::printf("%s\n", name.c_str());
    const auto items = gazetteer::SetUnder(*settings.columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        std::printf("  %s=%s\n", items.names[i].c_str(), ValueText(items.values[i]).c_str());
}

}  // namespace

int Check(const Options& options) {
    CommandSession session(options);
    auto& document = session.Look(options.document);
    gazetteer::Findings reasons;
    const bool drawable = document.CanDraw(reasons);
    if (!options.json) {
        std::puts(drawable ? "The gazetteer can be drawn." : UndrawableLines(reasons).c_str());
        return kDone;
    }
    PrintAnswer(2, [&](JsonAnswer& json) {
        json.Member("drawable", drawable);
        json.Member("reasons", reasons);
    });
    return kDone;
}

int Show(const Options& options) {
    CommandSession session(options);
    auto& document = session.Look(options.document);
    gazetteer::Findings reasons;
    bool drawable = document.CanDraw(reasons);
    auto& manager = document.Manager();
    if (drawable) {
        if (!session.Bind()) return kCouldNot;
        reasons = manager.LastFindings();
    }
    drawable = drawable && manager.CanDraw() && document.PageCount() > 0;
    if (options.json)
        PrintAnswer(1, [&](JsonAnswer& json) {
            if (drawable)
                WriteResults(json, manager);
            else
                WriteNothing(json);
        });
    else
        Print(manager, drawable, reasons);
    return kDone;
}

int ColumnList(const Options& options) {
    CommandSession session(options);
    SettingsEdit edit(session.Open(options.document));
    const auto& settings = edit.Settings();
    const auto names = gazetteer::NamesOf(*settings.columnNames);
    if (!options.json) {
        for (const auto& name : names) PrintColumn(settings, name);
        return kDone;
    }
    PrintAnswer(2, [&](JsonAnswer& json) {
        json.Objects("columns", names,
                     [&](const std::string& name) { WriteColumn(json, settings, name); });
        json.Member("displayOrder", gazetteer::NamesOf(*settings.columnDisplayOrder));
        json.Member("sortOrder", gazetteer::NamesOf(*settings.columnSortOrder));
    });
    return kDone;
}

}  // namespace app
