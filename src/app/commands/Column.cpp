#include <cstdio>

#include "app/Edit.h"
#include "app/Errors.h"
#include "app/JsonAnswer.h"
#include "app/Session.h"
#include "app/commands/Commands.h"
#include "model/ColumnList.h"

namespace app {
namespace {

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

void PrintColumn(Edit& edit, const std::string& name) {
    std::printf("%s\n", name.c_str());
    const auto items = gazetteer::SetUnder(*edit.Settings().columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        std::printf("  %s=%s\n", items.names[i].c_str(), ValueText(items.values[i]).c_str());
}

}  // namespace

int ColumnAdd(const CommonOptions& common, const ColumnOptions& options) {
    Session session(common);
    session.Open(options.document);
    auto& host = session.Host();
    Edit edit(session);
    const std::string name = gazetteer::CleanColumnName(host.Locale(), options.name);
    if (name.empty()) throw UsageError("A column's name must have a character that is no blank.");
    if (!gazetteer::FindColumn(host.Locale(), edit.Settings(), name).empty()) {
        host.Dialogs().MessageBox(gazetteer::NameInUseMessage());
        return kWrongUsage;
    }
    gazetteer::AddColumn(host, edit.Settings(), name, edit.CurrentColumn());
    for (const auto& assignment : options.assignments) edit.SetIn(name, assignment);
    edit.Store();
    session.Save();
    return kDone;
}

int ColumnRemove(const CommonOptions& common, const ColumnOptions& options) {
    Session session(common);
    session.Open(options.document);
    auto& host = session.Host();
    Edit edit(session);
    const std::string name = edit.ColumnName(options.name);
    if (!gazetteer::MayRemoveColumn(host, edit.Settings(), name)) return kWrongUsage;
    if (host.Dialogs().MessageBox(gazetteer::RemoveColumnQuestion()) != host::MessageAnswer::Yes)
        return kDone;
    gazetteer::RemoveColumn(edit.Settings(), name);
    edit.Store();
    session.Save();
    return kDone;
}

int ColumnList(const CommonOptions& common, const ColumnOptions& options) {
    Session session(common);
    session.Open(options.document);
    Edit edit(session);
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

}  // namespace app
