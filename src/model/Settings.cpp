#include "model/Settings.h"

#include <algorithm>

#include "model/KeyNames.h"
#include "model/Keys.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using SetField = host::Ref<host::IHostPropertySet> Settings::*;

// Columns are copied, so that no stored symbol is modified.
void ReadKey(const PropertyKey& key, const host::IHostPropertySet& properties, host::IHost& host,
             Settings& settings) {
    host::Variant value = properties.Item(key.name);
    auto& locale = host.Locale();
    try {
        if (key.name == std::string_view(keys::kColumnsProperties))
            value =
                AsVariant(CopySet(host, ValueAs<host::Ref<host::IHostPropertySet>>(value, locale)));
        std::visit(
            [&](auto field) {
                settings.*field =
                    ValueAs<std::remove_reference_t<decltype(settings.*field)>>(value, locale);
            },
            key.field);
    } catch (host::Failure& failure) {
        failure.AddFact("key", key.name);
        throw;
    }
}

bool IsColumnList(std::string_view name) {
    return name == keys::kColumnNames || name == keys::kColumnsProperties;
}

// Keys that every version has but which are read after the rest.
bool IsReadLast(const PropertyKey& key) {
    const std::string_view name = key.name;
    return key.sinceVersion > 1 || name == keys::kCanDrawIndex || name == keys::kVersion;
}

host::Variant ValueOf(const PropertyKey& key, const Settings& settings) {
    if (key.kind == ValueKind::Integer) return static_cast<std::int16_t>(settings.version);
    return std::visit([&](auto field) { return AsVariant(settings.*field); }, key.field);
}

}  // namespace

void ReadSettings(host::IHost& host, const host::IHostPropertySet& properties, Settings& settings,
                  SettingsScope scope) {
    const auto inScope = [&](const PropertyKey& key) {
        return scope == SettingsScope::All || key.writer == Writer::User || IsColumnList(key.name);
    };
    for (const PropertyKey& key : PropertyKeys())
        if (!IsReadLast(key) && inScope(key)) ReadKey(key, properties, host, settings);

    ReadKey(*FindPropertyKey(keys::kVersion), properties, host, settings);
    const std::int32_t version = settings.version;
    const bool known = version >= 1 && version <= kSchemaVersion;
    for (const PropertyKey& key : PropertyKeys()) {
        if (key.sinceVersion == 1 || !known) continue;
        if (key.sinceVersion <= version)
            ReadKey(key, properties, host, settings);
        else
            settings.*std::get<bool Settings::*>(key.field) = false;
    }
    if (scope == SettingsScope::All)
        ReadKey(*FindPropertyKey(keys::kCanDrawIndex), properties, host, settings);
}

void WriteSettings(const Settings& settings, host::IHostPropertySet& properties) {
    for (const PropertyKey& key : PropertyKeys())
        properties.SetItem(key.name, ValueOf(key, settings));
}

host::Ref<host::IHostPropertySet> CopySet(host::IHostPropertySetFactory& host,
                                          const host::Ref<host::IHostPropertySet>& set) {
    return host::As<host::IHostPropertySet>(host.NewObjectCopy()->Copy(set));
}

void FillEmptySets(host::IHostPropertySetFactory& host, Settings& settings) {
    for (const PropertyKey& key : PropertyKeys())
        if (const auto* field = std::get_if<SetField>(&key.field); field && !(settings.**field))
            settings.** field = host.NewPropertySet();
}

host::Ref<host::IHostPropertySet> SetUnder(const host::IHostPropertySet& set,
                                           const std::string& name) {
    auto inner = ToObject<host::IHostPropertySet>(set.Item(name));
    if (!inner) FailTypeMismatch();
    return inner;
}

std::vector<std::string> NamesOf(const host::IHostPropertySet& set, std::size_t most) {
    if (const auto* own = dynamic_cast<const host::IHostPropertyNames*>(&set))
        return own->FirstNames(most);
    auto names = set.AllItems().names;
    if (names.size() > most) names.resize(most);
    return names;
}

}  // namespace gazetteer
