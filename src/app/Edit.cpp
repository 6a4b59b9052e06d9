#include "app/Edit.h"

#include <algorithm>

#include "app/Errors.h"
#include "app/Files.h"
#include "app/ValueCautions.h"
#include "model/ColumnList.h"
#include "model/Edit.h"
#include "model/KeyNames.h"
#include "model/Keys.h"
#include "support/Text.h"

namespace app {
namespace {

constexpr char kMarkOff[] = ":off";

}  // namespace

Edit::Edit(Work& work) : work_(work) {
    auto& host = work.Host();
    const auto copy = gazetteer::CopySet(host, work.Properties());
    gazetteer::ReadSettings(host, *copy, settings_);
}

void Edit::Set(const std::string& text) {
    const Assignment assignment = ParseAssignment(text);
    if (assignment.column.empty())
        SetProperty(assignment.key, assignment.value);
    else
        SetColumn(assignment.column, assignment.key, assignment.value);
}

void Edit::SetIn(const std::string& column, const std::string& text) {
    const Assignment assignment = ParseAssignment(text);
    if (!assignment.column.empty())
        throw UsageError("\"" + text + "\": keys of the new column stand without its name.");
    SetColumn(column, assignment.key, assignment.value);
}

void Edit::SetProperty(const std::string& key, const std::string& value) {
    using gazetteer::Settings;
    const auto* entry = gazetteer::FindPropertyKey(key);
    if (!entry) {
        const bool ofColumn = gazetteer::FindColumnKey(key) != nullptr;
        throw UsageError("There is no property \"" + key + "\"" +
                         (ofColumn ? "; it is one of a column: COLUMN." + key + "=VALUE." : "."));
    }
    if (entry->writer == gazetteer::Writer::Run)
        throw UsageError("The property \"" + key + "\" is kept by the gazetteer itself.");
    if (key == gazetteer::keys::kColumnDisplayOrder)
        return SetOrder(key, value, &Settings::columnDisplayOrder, false);
    if (key == gazetteer::keys::kColumnSortOrder)
        return SetOrder(key, value, &Settings::columnSortOrder, true);

    const auto variant =
        ParseValue(work_.Host(), key, entry->kind,
                   key == gazetteer::keys::kIndexDatabaseFile ? FullPath(value) : value);
    std::visit(
        [&](auto field) {
            using Value = std::remove_reference_t<decltype(settings_.*field)>;
            if constexpr (!std::is_same_v<Value, host::Ref<host::IHostPropertySet>>)
                settings_.*field = std::get<Value>(variant);
        },
        entry->field);
}

void Edit::SetColumn(const std::string& column, const std::string& key, const std::string& value) {
    const auto* entry = gazetteer::FindColumnKey(key);
    if (!entry) throw UsageError("There is no column property \"" + key + "\".");
    if (entry->writer == gazetteer::Writer::Run)
        throw UsageError("The column property \"" + key + "\" is kept by the gazetteer itself.");
    auto names = gazetteer::NamesOf(*settings_.columnNames);
    if (column != "*") names = {ColumnName(column)};
    // Symbols are made anew for each column, so that no two share one.
    for (const std::string& name : names)
        gazetteer::SetUnder(*settings_.columnsProperties, name)
            ->SetItem(key, ParseValue(work_.Host(), column + "." + key, entry->kind, value));
}

void Edit::SetOrder(const std::string& key, const std::string& value,
                    host::Ref<host::IHostPropertySet> gazetteer::Settings::*order, bool marks) {
    auto set = work_.Host().NewPropertySet();
    const std::string given = key + '=' + Shown(value);
    std::vector<std::string> seen;
    for (std::string name : gazetteer::Split(value, ',')) {
        const bool off = marks && name.ends_with(kMarkOff);
        if (off) name.resize(name.size() - (sizeof kMarkOff - 1));
        if (name.empty()) throw UsageError(given + ": the value must name every column once.");
        const auto known = gazetteer::FindColumn(work_.Host().Locale(), settings_, name);
        if (known.empty())
            throw UsageError(given + ": there is no column \"" + Shown(name) + "\".");
        name = known;
        if (std::ranges::find(seen, name) != seen.end())
            throw UsageError(given + ": the column \"" + name + "\" stands twice.");
        seen.push_back(name);
        set->SetItem(name, marks ? host::Variant(!off) : host::Variant(name));
    }
    for (const std::string& name : gazetteer::NamesOf(*settings_.columnNames))
        if (std::ranges::find(seen, name) == seen.end())
            throw UsageError(given + ": the column \"" + name + "\" is missing.");
    settings_.*order = set;
}

std::string Edit::ColumnName(const std::string& name) {
    std::string known = gazetteer::FindColumn(work_.Host().Locale(), settings_, name);
    if (known.empty()) throw UsageError("There is no column \"" + Shown(name) + "\".");
    return known;
}

const gazetteer::ColumnProperties* Edit::CurrentColumn() {
    const auto names = gazetteer::NamesOf(*settings_.columnNames);
    if (names.empty()) return nullptr;
    current_ = gazetteer::ReadColumnProperties(
        *gazetteer::SetUnder(*settings_.columnsProperties, names.front()), work_.Host().Locale());
    return &current_;
}

void Edit::Store() {
    StoreForNow();
    if (!FitsFrame())
        work_.Caution(
            "the total width of the defined columns is wider than the width of the gazetteer "
            "frame.");
    for (const auto& caution : ValueCautions(settings_)) work_.Caution(caution);
}

void Edit::StoreForNow() {
    auto& host = work_.Host();
    const auto& element = work_.Gazetteer();
    const auto properties = work_.Properties();
    gazetteer::StoreEdit(host, settings_, false, *properties);
    host::As<host::IHostFrameElement>(element)->SetDraft(false);
    gazetteer::Findings reasons;
    properties->SetItem(gazetteer::keys::kCanDrawIndex, work_.CanDraw(reasons) && FitsFrame());
}

bool Edit::FitsFrame() const {
    return gazetteer::ColumnsFitFrame(work_.Host().Locale(), settings_,
                                      work_.Gazetteer()->Geometry()->Bounds()->Width());
}

}  // namespace app
