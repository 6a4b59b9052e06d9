#include "app/document/SettingsEdit.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/Suggestion.h"
#include "model/EditRules.h"
#include "model/KeyNames.h"
#include "model/Keys.h"
#include "model/TypesettingKeys.h"
#include "support/Text.h"

namespace app {
namespace {

constexpr char kMarkOff[] = ":off";
constexpr char kTypesetting[] = "Typesetting";

constexpr std::array<std::string_view, 4> kAlignments{"Left", "Center", "Right", "Justify"};

// Returns the names of the keys that a user may set.
std::vector<std::string> UserKeys(const auto& table) {
    std::vector<std::string> names;
    for (const auto& key : table)
        if (key.writer == gazetteer::Writer::User) names.emplace_back(key.name);
    return names;
}

// Returns a warning about a value that is no alignment, or an empty text.
std::string AlignmentWarning(const std::string& key, const host::Variant& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text && std::ranges::find(kAlignments, *text) != kAlignments.end()) return {};
    return key +
           " is none of Left, Center, Right and Justify, so that texts hang as their symbol says." +
           (text ? Suggestion(*text, {kAlignments.begin(), kAlignments.end()}) : "");
}

// Returns warnings about stored values that are unusual: unknown alignments, a default page below
// 1, and negative lengths.
std::vector<std::string> ValueWarnings(const gazetteer::Settings& settings,
                                       const std::optional<gazetteer::Typesetting>& typesetting) {
    std::vector<std::string> warnings;
    if (typesetting && typesetting->hangingIndent < 0)
        warnings.emplace_back(
            "Typesetting.HangingIndent is negative, so that no line is indented.");
    if (settings.defaultPage < 1)
        warnings.emplace_back("DefaultPage is less than 1, the first page.");
    if (settings.repeatSpacing < 0)
        warnings.emplace_back(
            "RepeatSpacing is negative, so that column groups may overlap or leave the frame.");
    for (const std::string& column : gazetteer::NamesOf(*settings.columnNames)) {
        const auto properties = gazetteer::SetUnder(*settings.columnsProperties, column);
        for (const auto& key : gazetteer::ColumnKeys()) {
            const auto value = properties->Item(key.name);
            const auto* length = std::get_if<double>(&value);
            if (length && *length < 0)
                warnings.push_back(column + '.' + key.name +
                                   " is negative, so that texts may overlap or leave the frame.");
        }
        for (const char* key : {gazetteer::keys::kAlignment, gazetteer::keys::kTitleAlignment})
            if (auto warning = AlignmentWarning(column + '.' + key, properties->Item(key));
                !warning.empty())
                warnings.push_back(std::move(warning));
    }
    return warnings;
}

}  // namespace

SettingsEdit::SettingsEdit(OpenDocument& open) : open_(open) {
    const auto copy = gazetteer::CopySet(open.Host(), open.Properties());
    gazetteer::ReadSettings(open.Host(), *copy, settings_);
}

std::optional<gazetteer::Typesetting>& SettingsEdit::Typesetting() {
    if (!typesetting_)
        typesetting_ = gazetteer::StoredTypesetting(open_.Gazetteer(), open_.Host().Locale());
    return *typesetting_;
}

void SettingsEdit::Set(const std::string& text) {
    const Assignment assignment = ParseAssignment(text);
    if (assignment.column == kTypesetting ||
        (assignment.column.empty() && assignment.key == kTypesetting))
        SetTypesetting(assignment.column.empty() ? "" : assignment.key, assignment.value);
    else if (assignment.column.empty())
        SetProperty(assignment.key, assignment.value);
    else
        SetColumn(assignment.column, assignment.key, assignment.value);
}

void SettingsEdit::SetIn(const std::string& column, const std::string& text) {
    const Assignment assignment = ParseAssignment(text);
    if (!assignment.column.empty())
        throw UsageError("\"" + text + "\": keys of the new column stand without its name.");
    SetColumn(column, assignment.key, assignment.value);
}

void SettingsEdit::AddColumn(const std::string& name) {
    const auto names = gazetteer::NamesOf(*settings_.columnNames);
    std::optional<gazetteer::ColumnProperties> first;
    if (!names.empty())
        first = gazetteer::ReadColumnProperties(
            *gazetteer::SetUnder(*settings_.columnsProperties, names.front()),
            open_.Host().Locale());
    gazetteer::AddColumn(open_.Host(), settings_, name, first ? &*first : nullptr);
}

void SettingsEdit::SetProperty(const std::string& key, const std::string& value) {
    using gazetteer::Settings;
    const auto* entry = gazetteer::FindPropertyKey(key);
    if (!entry) {
        std::string hint = '.' + Suggestion(key, UserKeys(gazetteer::PropertyKeys()));
        if (gazetteer::FindColumnKey(key))
            hint = "; it is one of a column: COLUMN." + key + "=VALUE.";
        else if (gazetteer::FindTypesettingKey(key))
            hint = "; it is one of typesetting: Typesetting." + key + "=VALUE.";
        throw UsageError("There is no property \"" + key + '"' + hint);
    }
    if (entry->writer == gazetteer::Writer::Run)
        throw UsageError("The property \"" + key + "\" is kept by the gazetteer itself.");
    if (key == gazetteer::keys::kColumnDisplayOrder)
        return SetOrder(key, value, &Settings::columnDisplayOrder, false);
    if (key == gazetteer::keys::kColumnSortOrder)
        return SetOrder(key, value, &Settings::columnSortOrder, true);

    const auto variant =
        ParseValue(open_.Host(), key, entry->kind,
                   key == gazetteer::keys::kIndexDatabaseFile ? FullPath(value) : value);
    std::visit(
        [&](auto field) {
            using Value = std::remove_reference_t<decltype(settings_.*field)>;
            if constexpr (!std::is_same_v<Value, host::Ref<host::IHostPropertySet>>)
                settings_.*field = std::get<Value>(variant);
        },
        entry->field);
}

void SettingsEdit::SetTypesetting(const std::string& key, const std::string& value) {
    if (key.empty()) {
        if (value != "none")
            throw UsageError("Typesetting=" + Shown(value) +
                             ": the value must be none; one setting is Typesetting.KEY=VALUE.");
        typesetting_.emplace();
        return;
    }
    const auto* entry = gazetteer::FindTypesettingKey(key);
    if (!entry)
        throw UsageError("There is no typesetting property \"" + key + "\"." +
                         Suggestion(key, UserKeys(gazetteer::TypesettingKeys())));
    if (entry->writer == gazetteer::Writer::Run)
        throw UsageError("The typesetting property \"" + key +
                         "\" is kept by the gazetteer itself.");
    const auto variant =
        ParseTypesettingValue(open_.Host(), *entry, std::string(kTypesetting) + '.' + key, value);
    auto& typesetting = Typesetting();
    if (!typesetting) typesetting.emplace();
    gazetteer::SetValue(*entry, variant, open_.Host().Locale(), *typesetting);
}

void SettingsEdit::SetColumn(const std::string& column, const std::string& key,
                             const std::string& value) {
    const auto* entry = gazetteer::FindColumnKey(key);
    if (!entry)
        throw UsageError("There is no column property \"" + key + "\"." +
                         Suggestion(key, UserKeys(gazetteer::ColumnKeys())));
    if (entry->writer == gazetteer::Writer::Run)
        throw UsageError("The column property \"" + key + "\" is kept by the gazetteer itself.");
    auto names = gazetteer::NamesOf(*settings_.columnNames);
    if (column != "*") names = {ColumnName(column)};
    // Parsed again for each column, so that columns do not share a symbol.
    for (const std::string& name : names)
        gazetteer::SetUnder(*settings_.columnsProperties, name)
            ->SetItem(key, ParseValue(open_.Host(), column + "." + key, entry->kind, value));
}

void SettingsEdit::SetOrder(const std::string& key, const std::string& value,
                            host::Ref<host::IHostPropertySet> gazetteer::Settings::*order,
                            bool marks) {
    auto set = open_.Host().NewPropertySet();
    const std::string given = key + '=' + Shown(value);
    std::vector<std::string> seen;
    for (std::string name : gazetteer::Split(value, ',')) {
        const bool off = marks && name.ends_with(kMarkOff);
        if (off) name.resize(name.size() - (sizeof kMarkOff - 1));
        if (name.empty()) throw UsageError(given + ": the value must name every column once.");
        const auto known = gazetteer::FindColumn(open_.Host().Locale(), settings_, name);
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

std::string SettingsEdit::ColumnName(const std::string& name) {
    std::string known = gazetteer::FindColumn(open_.Host().Locale(), settings_, name);
    if (known.empty())
        throw UsageError("There is no column \"" + Shown(name) + "\"." +
                         Suggestion(name, gazetteer::NamesOf(*settings_.columnNames)));
    return known;
}

void SettingsEdit::Store() {
    StoreWithoutWarnings();
    if (!FitsFrame())
        open_.Warn(
            "the total width of the defined columns is wider than the width of the gazetteer "
            "frame.");
    for (const auto& warning : ValueWarnings(settings_, Typesetting())) open_.Warn(warning);
}

void SettingsEdit::StoreWithoutWarnings() {
    auto& host = open_.Host();
    const auto& element = open_.Gazetteer();
    const auto properties = open_.Properties();
    const auto& typesetting = Typesetting();  // Fails before anything is stored.
    gazetteer::StoreEdit(host, settings_, false, *properties);
    gazetteer::StoreTypesetting(host, element, typesetting);
    host::As<host::IHostFrameElement>(element)->SetDraft(false);
    gazetteer::Findings reasons;
    properties->SetItem(gazetteer::keys::kCanDrawIndex, open_.CanDraw(reasons) && FitsFrame());
}

bool SettingsEdit::FitsFrame() const {
    return gazetteer::ColumnsFitFrame(open_.Host().Locale(), settings_,
                                      open_.Gazetteer()->Geometry()->Bounds()->Width());
}

}  // namespace app
