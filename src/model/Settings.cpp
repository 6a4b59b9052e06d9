#include "model/Settings.h"

#include <algorithm>

#include "model/Keys.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

using SetField = host::Ref<host::IHostPropertySet> Settings::*;

void ReadKey(const PropertyKey& key, const host::IHostPropertySet& properties,
             host::IHostLocale& locale, Settings& settings) {
    const host::Variant value = properties.Item(key.name);
    struct Reader {
        const host::Variant& value;
        host::IHostLocale& locale;
        Settings& settings;
        void operator()(bool Settings::*field) const { settings.*field = ToBoolean(value); }
        void operator()(std::int32_t Settings::*field) const {
            settings.*field = ToLong(value, locale);
        }
        void operator()(double Settings::*field) const {
            settings.*field = ToDouble(value, locale);
        }
        void operator()(std::string Settings::*field) const {
            settings.*field = ToText(value, locale);
        }
        void operator()(SetField field) const {
            settings.*field = ToObject<host::IHostPropertySet>(value);
            if (!(settings.*field))
                throw host::Failure(host::kFailureTypeMismatch, "", "Type mismatch");
        }
    };
    try {
        std::visit(Reader{value, locale, settings}, key.field);
    } catch (host::Failure& failure) {
        failure.AddFact("key", key.name);
        throw;
    }
}

// Keys that every version has but which are read after the rest.
bool IsReadLast(const PropertyKey& key) {
    const std::string_view name = key.name;
    return key.sinceVersion > 1 || name == "CanDrawIndex" || name == "Version";
}

host::Variant ValueOf(const PropertyKey& key, const Settings& settings) {
    struct Writer {
        const PropertyKey& key;
        const Settings& settings;
        host::Variant operator()(bool Settings::*field) const { return settings.*field; }
        host::Variant operator()(std::int32_t Settings::*field) const {
            if (key.kind == ValueKind::Integer) return static_cast<std::int16_t>(settings.*field);
            return settings.*field;
        }
        host::Variant operator()(double Settings::*field) const { return settings.*field; }
        host::Variant operator()(std::string Settings::*field) const { return settings.*field; }
        host::Variant operator()(SetField field) const {
            return host::Ref<host::IHostObject>(settings.*field);
        }
    };
    return std::visit(Writer{key, settings}, key.field);
}

}  // namespace

void ReadSettings(const host::IHostPropertySet& properties, host::IHostLocale& locale,
                  Settings& settings) {
    for (const PropertyKey& key : PropertyKeys())
        if (!IsReadLast(key)) ReadKey(key, properties, locale, settings);

    ReadKey(*FindPropertyKey("Version"), properties, locale, settings);
    const std::int32_t version = settings.version;
    const bool known = version >= 1 && version <= kSchemaVersion;
    for (const PropertyKey& key : PropertyKeys()) {
        if (key.sinceVersion == 1 || !known) continue;
        if (key.sinceVersion <= version)
            ReadKey(key, properties, locale, settings);
        else
            settings.*std::get<bool Settings::*>(key.field) = false;
    }
    ReadKey(*FindPropertyKey("CanDrawIndex"), properties, locale, settings);
}

void WriteSettings(const Settings& settings, host::IHostPropertySet& properties) {
    for (const PropertyKey& key : PropertyKeys())
        properties.SetItem(key.name, ValueOf(key, settings));
}

void FillEmptySets(host::IHost& host, Settings& settings) {
    for (const PropertyKey& key : PropertyKeys())
        if (const auto* field = std::get_if<SetField>(&key.field); field && !(settings.**field))
            settings.** field = host.NewPropertySet();
}

std::vector<std::string> NamesOf(const host::IHostPropertySet& set) {
    return set.AllItems().names;
}

}  // namespace gazetteer
