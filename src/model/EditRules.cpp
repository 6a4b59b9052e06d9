#include "model/EditRules.h"

#include <algorithm>

#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::IHostObject;
using host::IHostPropertySet;
using host::Ref;

constexpr char kInvalidDatabase[] = "Invalid Listing Database!";
constexpr char kCantRemove[] = "Can't Remove!";

void StoreColumn(Settings& settings, const std::string& name, const Ref<IHostPropertySet>& set) {
    settings.columnsProperties->SetItem(name, Ref<IHostObject>(set));
    settings.columnNames->SetItem(name, name);
    settings.columnDisplayOrder->SetItem(name, name);
    settings.columnSortOrder->SetItem(name, true);
}

}  // namespace

host::MessageBoxRequest DatabaseWithoutPageMessage() {
    return {kInvalidDatabase, "Selected dBase file does not contain required  \"Page\" field!",
            host::kStopOk};
}
host::MessageBoxRequest NameInUseMessage() {
    return {"Invalid Name", "Column name already in use!", host::kStopOk};
}
host::MessageBoxRequest PageColumnStaysMessage() {
    return {kCantRemove, "There 'Page' column can't be removed from index layout", host::kStopOk};
}
host::MessageBoxRequest LastColumnStaysMessage() {
    return {kCantRemove,
            "There must be at least one column defined in the index Layout besides the Page column",
            host::kStopOk};
}
host::MessageBoxRequest RemoveColumnQuestion() {
    return {"Remove?", "Remove selected Column?", host::kYesNo};
}

bool DefineColumns(host::IHost& host, const host::IHostFields& fields, Settings& settings) try {
    const auto has = [&](const char* field) { return fields.FindField(field) >= 0; };
    settings.columnNames = host.NewPropertySet();
    settings.columnDisplayOrder = host.NewPropertySet();
    settings.columnSortOrder = host.NewPropertySet();
    if (!has("Page")) {
        host.Dialogs().MessageBox(DatabaseWithoutPageMessage());
        return false;
    }
    if (has("Listing"))
        StoreColumn(settings, "Listing",
                    MakeColumnProperties(host, "Listing", "[Listing]", true, true, nullptr));
    const char* reference =
        has("Row") && has("Column") ? "$$PAGE_NUMBER $$ROW-$$COLUMN" : "$$PAGE_NUMBER";
    StoreColumn(settings, "Page",
                MakeColumnProperties(host, "Page", reference, true, false, nullptr));
    return true;
} catch (...) {
    PassOn("DefineColumns", kFormLabel);
}

std::string CleanColumnName(host::IHostLocale& locale, const std::string& answer) {
    std::string name = WithoutOuterBlanks(answer);
    std::ranges::replace(name, ' ', '_');
    const auto characters = locale.Characters(name);
    std::size_t bytes = 0;
    for (std::size_t i = 0; i < std::min(characters.size(), kColumnNameLength); ++i)
        bytes += characters[i];
    return name.substr(0, bytes);
}

std::string FindColumn(host::IHostLocale& locale, const Settings& settings,
                       const std::string& name) {
    for (const std::string& known : NamesOf(*settings.columnNames))
        if (locale.CompareText(known, name) == 0) return known;
    return {};
}

void AddColumn(host::IHost& host, Settings& settings, const std::string& name,
               const ColumnProperties* current) {
    StoreColumn(settings, name, MakeColumnProperties(host, name, "", true, false, current));
}

bool MayRemoveColumn(host::IHost& host, const Settings& settings, const std::string& name) {
    if (host.Locale().CompareText(name, "Page") == 0) {
        host.Dialogs().MessageBox(PageColumnStaysMessage());
        return false;
    }
    if (settings.columnNames->Count() < 3) {
        host.Dialogs().MessageBox(LastColumnStaysMessage());
        return false;
    }
    return true;
}

void RemoveColumn(Settings& settings, const std::string& name) {
    for (const auto& set : {settings.columnsProperties, settings.columnNames,
                            settings.columnDisplayOrder, settings.columnSortOrder})
        set->RemoveItem(name);
}

Ref<IHostPropertySet> Reordered(host::IHostPropertySetFactory& host, const IHostPropertySet& old,
                                const std::vector<std::string>& order) {
    auto set = host.NewPropertySet();
    for (const std::string& name : order) set->SetItem(name, old.Item(name));
    return set;
}

void StoreEdit(host::IHost& host, Settings& settings, bool canDrawIndex,
               host::IHostPropertySet& properties) {
    settings.haveSavedListings = false;
    settings.savedListings = host.NewPropertySet();
    settings.pageGroups = host.NewPropertySet();
    settings.pageFirstListings = host.NewPropertySet();
    settings.pageLastListings = host.NewPropertySet();
    settings.canDrawIndex = canDrawIndex;
    settings.version = kSchemaVersion;

    Settings stored = settings;
    stored.columnsProperties = CopySet(host, settings.columnsProperties);
    WriteSettings(stored, properties);
}

// The results, which may be large, are not copied first.
Ref<IHostPropertySet> WithoutResults(host::IHostPropertySetFactory& host,
                                     const IHostPropertySet& properties) {
    const auto items = properties.AllItems();
    auto set = host.NewPropertySet();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        set->SetItem(items.names[i], items.values[i]);
    set->SetItem(keys::kHaveSavedListings, false);
    for (const char* const key : {keys::kSavedListings, keys::kPageGroups, keys::kPageFirstListings,
                                  keys::kPageLastListings})
        set->SetItem(key, Ref<IHostObject>(host.NewPropertySet()));
    return CopySet(host, set);
}

bool ColumnsFitFrame(host::IHostLocale& locale, const Settings& settings, double frameWidth) {
    double total = 0;
    for (const std::string& name : NamesOf(*settings.columnNames))
        total +=
            ToDouble(SetUnder(*settings.columnsProperties, name)->Item(keys::kColumnWidth), locale);
    return total <= frameWidth;
}

}  // namespace gazetteer
