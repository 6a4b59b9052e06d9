#include <algorithm>
#include <ranges>

#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "app/document/RunTexts.h"
#include "app/document/SettingsEdit.h"
#include "model/Settings.h"
#include "model/TypesettingKeys.h"
#include "support/Conversions.h"

namespace app {
namespace {

using gazetteer::ToObject;
using host::IHostPropertySet;

// Throws for a value that has no text, which only a damaged document holds.
std::string CellText(const host::Variant& value, OpenDocument& document, const std::string& column,
                     const std::string& row) {
    try {
        return gazetteer::ToText(value, document.Host().Locale());
    } catch (const host::Failure&) {
        throw CommandError("The document is damaged: the stored listing " + Shown(row) +
                           " has no text in the column \"" + Shown(column) + "\".");
    }
}

// An empty text after a failure, which the user has seen.
std::string PageName(OpenDocument& document, std::int32_t page) {
    return gazetteer::ToText(document.Manager().PageName(page), document.Host().Locale());
}

void WritePage(JsonAnswer& json, OpenDocument& document, std::int32_t page) {
    auto& manager = document.Manager();
    const auto rows = gazetteer::SetUnder(*manager.Working().pageGroups, std::to_string(page));
    json.Member("page", page);
    json.Member("name", PageName(document, page));
    json.Member("first", manager.FirstListing(page));
    json.Member("last", manager.LastListing(page));
    json.Member("rows", gazetteer::NamesOf(*rows));
}

void WriteListings(JsonAnswer& json, OpenDocument& document) {
    const auto columns = document.Manager().Working().listings->AllItems();
    std::vector<host::PropertyItems> cells;
    for (std::size_t i = 0; i < columns.names.size(); ++i) {
        const auto column = ToObject<IHostPropertySet>(columns.values[i]);
        if (!column)
            throw CommandError(
                "The document is damaged: there are no stored listings of the column \"" +
                Shown(columns.names[i]) + "\".");
        cells.push_back(column->AllItems());
    }
    const std::size_t count = cells.empty() ? 0 : cells.front().names.size();
    json.Objects("listings", std::views::iota(std::size_t{0}, count), [&](std::size_t row) {
        const auto& name = cells.front().names[row];
        json.Member("row", name);
        json.Object("cells", [&] {
            for (std::size_t i = 0; i < cells.size(); ++i)
                if (row < cells[i].values.size())
                    json.Member(columns.names[i],
                                CellText(cells[i].values[row], document, columns.names[i], name));
        });
    });
}

void WriteResults(JsonAnswer& json, OpenDocument& document) {
    const auto& manager = document.Manager();
    const std::int32_t pages = manager.Working().pageCount;
    json.Member("drawable", true);
    json.Member("defaultPage", manager.BoundSettings().defaultPage);
    json.Member("pageCount", pages);
    json.Member("columns", gazetteer::NamesOf(*manager.BoundSettings().columnDisplayOrder));
    json.Objects("pages", std::views::iota(1, pages + 1),
                 [&](std::int32_t page) { WritePage(json, document, page); });
    WriteListings(json, document);
    document.CheckNothingFailed();
}

// Writes the keys of WriteResults for a gazetteer without results.
void WriteNothing(JsonAnswer& json) {
    json.Member("drawable", false);
    json.Member("defaultPage", 0);
    json.Member("pageCount", 0);
    for (const char* key : {"columns", "pages", "listings"})
        json.Member(key, std::vector<std::string>());
}

// Five places wide.
std::string AtRight(std::int32_t page) {
    const std::string digits = std::to_string(page);
    return std::string(5 - std::min<std::size_t>(5, digits.size()), ' ') + digits;
}

void PrintPages(OpenDocument& document, bool drawable, const gazetteer::Findings& reasons) {
    if (!drawable)
        return Print(reasons.empty() ? "The gazetteer has no page." : UndrawableLines(reasons));
    const auto& manager = document.Manager();
    Print("Pages: " + std::to_string(manager.Working().pageCount) +
          "\nDefault page: " + std::to_string(manager.BoundSettings().defaultPage));
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page)
        Print(AtRight(page) + ' ' + PageName(document, page));
    document.CheckNothingFailed();
}

void WriteValue(JsonAnswer& json, const std::string& name, const host::Variant& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return json.Member(name, *flag);
    if (const auto* number = std::get_if<double>(&value)) return json.Member(name, *number);
    if (const auto* version = std::get_if<std::int16_t>(&value)) return json.Member(name, *version);
    if (const auto* whole = std::get_if<std::int32_t>(&value)) return json.Member(name, *whole);
    json.Member(name, ValueText(value));
}

void WriteTypesetting(JsonAnswer& json, OpenDocument& document) {
    const auto typesetting =
        gazetteer::StoredTypesetting(document.Gazetteer(), document.Host().Locale());
    if (!typesetting) {
        json.Key("typesetting");
        return json.Null();
    }
    json.Object("typesetting", [&] {
        for (const auto& key : gazetteer::TypesettingKeys())
            WriteValue(json, key.name, gazetteer::ValueOf(key, *typesetting));
    });
}

void WriteColumn(JsonAnswer& json, const gazetteer::Settings& settings, const std::string& name) {
    json.Member("name", name);
    json.Member("sorted", gazetteer::ToBoolean(settings.columnSortOrder->Item(name)));
    const auto items = gazetteer::SetUnder(*settings.columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        WriteValue(json, items.names[i], items.values[i]);
}

void PrintColumn(const gazetteer::Settings& settings, const std::string& name) {
    Print(name);
    const auto items = gazetteer::SetUnder(*settings.columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        Print("  " + items.names[i] + '=' + ValueText(items.values[i]));
}

// Binds the gazetteer without a word, so that its pages are known. A run that fails adds its
// reason.
bool CanRun(OpenDocument& document, gazetteer::Findings& reasons) {
    const RecordingDialogs::Silent silent(document.Dialogs());
    auto& manager = document.Manager();
    manager.SetIndexElement(document.Gazetteer());
    if (silent.Failed()) reasons = {silent.Sentence()};
    return !silent.Failed();
}

// Looks at all pages. Stored results that cannot be read are a reason.
bool CanFind(CommandSession& session, FindingList& list, gazetteer::Findings& reasons) try {
    // A listing database without records can be drawn, but has no results.
    if (session.Document().Manager().CanDraw()) list = session.Find();
    return true;
} catch (const host::Failure& failure) {
    reasons = {"The stored results are damaged: " + FailureSentence(failure)};
    return false;
}

void WriteFindings(JsonAnswer& json, const FindingList& list) {
    json.Objects("findings", list.Kept(), [&](const Finding& finding) {
        json.Member("kind", finding.kind);
        if (!finding.listing.empty()) json.Member("listing", finding.listing);
        if (!finding.column.empty()) json.Member("column", finding.column);
        if (finding.page > 0) json.Member("page", finding.page);
        if (finding.record > 0) json.Member("record", finding.record);
        json.Member("text", finding.text);
    });
    if (list.IsEmpty()) return;
    json.Object("findingCounts", [&] {
        for (const auto& [kind, count] : list.Counts()) json.Member(kind, count);
    });
}

}  // namespace

int Check(const Options& options) {
    CommandSession session(options);
    auto& document = session.Look(options.document);
    gazetteer::Findings reasons;
    FindingList list;
    const bool drawable =
        document.CanDraw(reasons) && CanRun(document, reasons) && CanFind(session, list, reasons);
    if (!options.json) {
        Print(drawable ? "The gazetteer can be drawn." : UndrawableLines(reasons));
        for (const auto& sentence : list.Sentences()) Print("  " + sentence);
        return kDone;
    }
    PrintAnswer(2, [&](JsonAnswer& json) {
        json.Member("drawable", drawable);
        json.Member("reasons", reasons);
        WriteFindings(json, list);
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
    drawable = drawable && manager.CanDraw();
    const bool hasPages = drawable && document.PageCount() > 0;
    // Findings come last, because a damaged listing is told better by what writes it.
    if (options.json)
        PrintAnswer(1, [&](JsonAnswer& json) {
            if (hasPages)
                WriteResults(json, document);
            else
                WriteNothing(json);
            WriteTypesetting(json, document);
            WriteFindings(json, hasPages ? session.Find() : FindingList());
        });
    else
        PrintPages(document, hasPages, reasons);
    if (drawable && !options.json) session.TellFindings();
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
