#include <cstdio>
#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "app/document/SettingsEdit.h"
#include "listings/IndexTable.h"
#include "model/ColumnList.h"

namespace app {
namespace {

struct ColumnOptions {
    std::string document;
    std::string name;
    std::vector<std::string> assignments;
    bool json = false;
};

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

void PrintColumn(SettingsEdit& edit, const std::string& name) {
    std::printf("%s\n", name.c_str());
    const auto items = gazetteer::SetUnder(*edit.Settings().columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        std::printf("  %s=%s\n", items.names[i].c_str(), ValueText(items.values[i]).c_str());
}

int ColumnAdd(const CommonOptions& common, const ColumnOptions& options) {
    CommandSession session(common);
    auto& document = session.Open(options.document);
    auto& host = document.Host();
    SettingsEdit edit(document);
    const std::string name = gazetteer::CleanColumnName(host.Locale(), options.name);
    if (name.empty()) throw UsageError("A column's name must have a character that is no blank.");
    const std::string refusal = gazetteer::IndexTableRefusal(name, true);
    if (!refusal.empty()) throw UsageError(refusal);
    if (!gazetteer::FindColumn(host.Locale(), edit.Settings(), name).empty()) {
        host.Dialogs().MessageBox(gazetteer::NameInUseMessage());
        return kWrongUsage;
    }
    gazetteer::AddColumn(host, edit.Settings(), name, edit.CurrentColumn());
    for (const auto& assignment : options.assignments) edit.SetIn(name, assignment);
    edit.Store();
    document.Save();
    return kDone;
}

int ColumnRemove(const CommonOptions& common, const ColumnOptions& options) {
    CommandSession session(common);
    auto& document = session.Open(options.document);
    auto& host = document.Host();
    SettingsEdit edit(document);
    const std::string name = edit.ColumnName(options.name);
    if (!gazetteer::MayRemoveColumn(host, edit.Settings(), name)) return kWrongUsage;
    if (host.Dialogs().MessageBox(gazetteer::RemoveColumnQuestion()) != host::MessageAnswer::Yes)
        return kDone;
    gazetteer::RemoveColumn(edit.Settings(), name);
    edit.Store();
    document.Save();
    return kDone;
}

int ColumnList(const CommonOptions& common, const ColumnOptions& options) {
    CommandSession session(common);
    auto& document = session.Open(options.document);
    SettingsEdit edit(document);
    const auto& settings = edit.Settings();
    if (!options.json) {
        for (const auto& name : gazetteer::NamesOf(*settings.columnNames)) PrintColumn(edit, name);
        return kDone;
    }
    PrintAnswer(2, [&](JsonAnswer& json) {
        json.Objects("columns", gazetteer::NamesOf(*settings.columnNames),
                     [&](const std::string& name) { WriteColumn(json, settings, name); });
        json.Member("displayOrder", gazetteer::NamesOf(*settings.columnDisplayOrder));
        json.Member("sortOrder", gazetteer::NamesOf(*settings.columnSortOrder));
    });
    return kDone;
}

}  // namespace

void AddColumn(Arguments& program) {
    auto column = program.AddCommand("column", "Add, remove or list columns");
    column.Help(kColumnHelp);
    const auto options = std::make_shared<ColumnOptions>();
    const auto run = [&](int (*function)(const CommonOptions&, const ColumnOptions&)) {
        return
            [options, function](const CommonOptions& common) { return function(common, *options); };
    };
    auto add = AddCommand(column, "add", "Add a column", run(ColumnAdd));
    AddDocument(add, options->document)
        .Text("NAME", options->name, "Name of the column")
        .Required()
        .Texts("KEY=VALUE", options->assignments, "Properties of the column");
    auto remove = AddCommand(column, "remove", "Remove a column", run(ColumnRemove));
    AddDocument(remove, options->document)
        .Text("NAME", options->name, "Name of the column")
        .Required();
    auto list =
        AddCommand(column, "list", "List the columns with their properties", run(ColumnList));
    AddDocument(list, options->document).Flag("--json", options->json, "As JSON");
}

}  // namespace app
