#include "model/GeneralFunctions.h"

#include <algorithm>

#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr char kMakerKey[] = "CorvaneProperties";
constexpr char kGazetteerKey[] = "GazetteerProperties";

using host::IHostCustomProperty;
using host::IHostElement;
using host::IHostObject;
using host::IHostPropertySet;
using host::Ref;

Ref<IHostPropertySet> Container(const Ref<IHostElement>& element) {
    const auto custom = host::As<IHostCustomProperty>(element);
    return custom ? ToObject<IHostPropertySet>(custom->CustomProperty()) : nullptr;
}

// The set under a key that may be absent; any failure of Item counts as absent.
Ref<IHostPropertySet> ProbeSet(const IHostPropertySet& set, const char* key) {
    try {
        return ToObject<IHostPropertySet>(set.Item(key));
    } catch (...) {
        return nullptr;
    }
}

bool Lists(const IHostPropertySet& set, const char* key) {
    const auto names = set.AllItems().names;
    return std::ranges::find(names, key) != names.end();
}

// The set under a key, or null where the key is not listed. Unlike ProbeSet it fails where a listed
// key cannot be read, so that another component's value is not replaced.
Ref<IHostPropertySet> ReadListed(const IHostPropertySet& set, const char* key) {
    return Lists(set, key) ? ToObject<IHostPropertySet>(set.Item(key)) : nullptr;
}

// "CorvaneProperties" of the element; creates it and its container where they are missing.
Ref<IHostPropertySet> EnsureMakerSet(host::IHostPropertySetFactory& host,
                                     const Ref<IHostElement>& element) {
    const bool hasMaker = HasCorvaneProperties(element);
    auto container = Container(element);
    if (hasMaker) return ToObject<IHostPropertySet>(container->Item(kMakerKey));
    if (!container) {
        container = host.NewPropertySet();
        Require<IHostCustomProperty>(element)->SetCustomProperty(Ref<IHostObject>(container));
    }
    if (auto maker = ReadListed(*container, kMakerKey)) return maker;
    auto maker = host.NewPropertySet();
    container->SetItem(kMakerKey, Ref<IHostObject>(maker));
    return maker;
}

}  // namespace

Ref<IHostPropertySet> CorvaneProperties(const Ref<IHostElement>& element) {
    const auto container = Container(element);
    return container ? ProbeSet(*container, kMakerKey) : nullptr;
}

bool HasCorvaneProperties(const Ref<IHostElement>& element) try {
    return CorvaneProperties(element) != nullptr;
} catch (...) {
    PassOn("HasCorvaneProperties", kGeneralFunctionsLabel);
}

bool HasGazetteerProperties(host::IHost& host, const Ref<IHostElement>& element) try {
    if (!HasCorvaneProperties(element)) return false;
    const auto maker = ToObject<IHostPropertySet>(Container(element)->Item(kMakerKey));
    return ProbeSet(*maker, kGazetteerKey) != nullptr;
} catch (...) {
    ShowAtTop(host.Dialogs(), "HasGazetteerProperties", kGeneralFunctionsLabel);
    return false;
}

Ref<IHostPropertySet> StoredGazetteerProperties(const Ref<IHostElement>& element) {
    const auto container = Container(element);
    const auto maker = container ? ToObject<IHostPropertySet>(container->Item(kMakerKey)) : nullptr;
    auto stored = maker ? ToObject<IHostPropertySet>(maker->Item(kGazetteerKey)) : nullptr;
    if (!stored) FailTypeMismatch();
    return stored;
}

Ref<IHostPropertySet> GetGazetteerProperties(host::IHost& host,
                                             const Ref<IHostElement>& element) try {
    if (!HasGazetteerProperties(host, element))
        Raise("GazetteerProperties.GetGazetteerProperties",
              "Group Element has no gazetteer properties.");
    return StoredGazetteerProperties(element);
} catch (...) {
    ShowAtTop(host.Dialogs(), "GetGazetteerProperties", kGeneralFunctionsLabel);
    return nullptr;
}

Ref<IHostPropertySet> NewGazetteerProperties(host::IHost& host) try {
    Settings defaults;
    defaults.combineFirstAndLast = true;
    FillEmptySets(host, defaults);
    auto properties = host.NewPropertySet();
    WriteSettings(defaults, *properties);
    return properties;
} catch (...) {
    ShowAtTop(host.Dialogs(), "NewGazetteerProperties", kGeneralFunctionsLabel);
    return nullptr;
}

bool SetGazetteerProperties(host::IHost& host, const Ref<IHostElement>& element,
                            const Ref<IHostPropertySet>& properties) try {
    EnsureMakerSet(host, element)->SetItem(kGazetteerKey, Ref<IHostObject>(properties));
    return true;
} catch (...) {
    ShowAtTop(host.Dialogs(), "SetGazetteerProperties", kGeneralFunctionsLabel);
    return false;
}

void DeleteKeyProperties(host::IHost& host, const Ref<IHostElement>& element) try {
    if (!HasCorvaneProperties(element)) return;
    const auto maker = ToObject<IHostPropertySet>(Container(element)->Item(kMakerKey));
    if (Lists(*maker, kGazetteerKey)) maker->RemoveItem(kGazetteerKey);
} catch (...) {
    ShowAtTop(host.Dialogs(), "DeleteKeyProperties", kGeneralFunctionsLabel);
}

}  // namespace gazetteer
