#include "app/document/StoredValues.h"

#include <algorithm>
#include <string>

#include "app/document/Errors.h"
#include "model/KeyNames.h"
#include "model/Keys.h"
#include "support/Conversions.h"

namespace app {
namespace {

using gazetteer::Findings;
using gazetteer::ValueKind;
using Set = host::IHostPropertySet;

const char* FormOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::Boolean:
            return "true or false";
        case ValueKind::Integer:
        case ValueKind::Long:
            return "a whole number";
        case ValueKind::Double:
            return "a number of inches from -1000 to 1000";
        case ValueKind::Set:
            return "a set of values";
        case ValueKind::TextSymbol:
            return "a text symbol";
        case ValueKind::FillSymbol:
            return "a fill symbol";
        case ValueKind::String:
            break;
    }
    return "a text";
}

// Checks the values that one set stores.
class SetCheck {
public:
    SetCheck(const Set& set, host::IHostLocale& locale, std::string owner, Findings& faults)
        : items_(set.AllItems()), locale_(locale), owner_(std::move(owner)), faults_(faults) {}

    void Check(const auto& key) {
        std::visit([&]<class T, class Owner>(T Owner::*) { CheckIs<T>(key.name, key.kind); },
                   key.field);
    }

    template <class T>
    void CheckIs(const std::string& name, ValueKind kind) {
        const auto* const value = Value(name);
        if (!value) return faults_.push_back(owner_ + name + " is missing.");
        try {
            gazetteer::ValueAs<T>(*value, locale_);
        } catch (const host::Failure&) {
            faults_.push_back(owner_ + name + " must be " + FormOf(kind) + '.');
        }
    }

    const host::Variant* Value(const std::string& name) const {
        const auto at = std::ranges::find(items_.names, name);
        return at == items_.names.end()
                   ? nullptr
                   : &items_.values[static_cast<std::size_t>(at - items_.names.begin())];
    }

private:
    host::PropertyItems items_;
    host::IHostLocale& locale_;
    std::string owner_;
    Findings& faults_;
};

// A version that is not known stands for the first.
std::int32_t VersionOf(const SetCheck& properties, host::IHostLocale& locale) try {
    const auto* const stored = properties.Value(gazetteer::keys::kVersion);
    const std::int32_t version = stored ? gazetteer::ToLong(*stored, locale) : 1;
    return version >= 1 && version <= gazetteer::kSchemaVersion ? version : 1;
} catch (const host::Failure&) {
    return 1;
}

void CheckColumns(const Set& properties, host::IHostLocale& locale, Findings& faults) {
    const auto columns = gazetteer::SetUnder(properties, gazetteer::keys::kColumnsProperties);
    const auto names = gazetteer::SetUnder(properties, gazetteer::keys::kColumnNames);
    const SetCheck stored(*columns, locale, "", faults);
    for (const auto& name : gazetteer::NamesOf(*names)) {
        const std::string owner = "Column \"" + Shown(name) + "\": ";
        const auto* const value = stored.Value(name);
        const auto set = value ? gazetteer::ToObject<Set>(*value) : nullptr;
        if (!set) {
            faults.push_back(owner + "its values are missing.");
            continue;
        }
        SetCheck check(*set, locale, owner, faults);
        for (const auto& key : gazetteer::ColumnKeys())
            if (key.writer == gazetteer::Writer::User && !key.storedOnly) check.Check(key);
    }
    const auto order = gazetteer::SetUnder(properties, gazetteer::keys::kColumnSortOrder);
    SetCheck sorted(*order, locale, "ColumnSortOrder: ", faults);
    for (const auto& name : gazetteer::NamesOf(*order))
        sorted.CheckIs<bool>(name, ValueKind::Boolean);
}

}  // namespace

Findings FaultsOfStoredValues(const Set& properties, host::IHostLocale& locale) {
    Findings faults;
    SetCheck check(properties, locale, "", faults);
    const std::int32_t version = VersionOf(check, locale);
    for (const auto& key : gazetteer::PropertyKeys())
        if (key.sinceVersion <= version) check.Check(key);
    if (faults.empty()) CheckColumns(properties, locale, faults);
    return faults;
}

}  // namespace app
