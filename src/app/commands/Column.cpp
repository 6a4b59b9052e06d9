#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/Edit.h"
#include "app/Errors.h"
#include "app/Session.h"
#include "app/commands/Commands.h"
#include "listings/IndexTable.h"
#include "model/ColumnList.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

Json ColumnJson(Edit& edit, const std::string& name) {
    auto& settings = edit.Settings();
    Json json = {{"name", name}, {"sorted", std::get<bool>(settings.columnSortOrder->Item(name))}};
    const auto items = gazetteer::SetUnder(*settings.columnsProperties, name)->AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        const auto& value = items.values[i];
        if (const auto* flag = std::get_if<bool>(&value))
            json[items.names[i]] = *flag;
        else if (const auto* number = std::get_if<double>(&value))
            json[items.names[i]] = *number;
        else if (const auto* version = std::get_if<std::int16_t>(&value))
            json[items.names[i]] = *version;
        else
            json[items.names[i]] = ValueText(value);
    }
    return json;
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
    const std::string refusal = gazetteer::IndexTableRefusal(name, true);
    if (!refusal.empty()) throw UsageError(refusal);
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
    Json json = {{"columns", Json::array()},
                 {"displayOrder", gazetteer::NamesOf(*settings.columnDisplayOrder)},
                 {"sortOrder", gazetteer::NamesOf(*settings.columnSortOrder)}};
    for (const auto& name : gazetteer::NamesOf(*settings.columnNames))
        json["columns"].push_back(ColumnJson(edit, name));
    std::puts(json.dump(2).c_str());
    return kDone;
}

}  // namespace app
