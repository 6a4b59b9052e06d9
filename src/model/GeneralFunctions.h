#pragma once

#include "host/Host.h"

/// Finding, creating, replacing and deleting the property set on a group element. It hangs in two
/// shared containers: custom value, then "CorvaneProperties", then "GazetteerProperties". Other
/// components keep keys of their own in both, which nothing here touches.
namespace gazetteer {

/// Inner procedure: the custom value is a property set that holds a set "CorvaneProperties".
bool HasCorvaneProperties(const host::Ref<host::IHostElement>& element);

/// The element is a gazetteer element. False also after a failure, which is shown.
bool HasGazetteerProperties(host::IHost& host, const host::Ref<host::IHostElement>& element);

/// The live set itself, no copy. Without one the failure is shown and the answer is null.
host::Ref<host::IHostPropertySet> GetGazetteerProperties(
    host::IHost& host, const host::Ref<host::IHostElement>& element);

/// A new set of all defaults.
host::Ref<host::IHostPropertySet> NewGazetteerProperties(host::IHost& host);

/// Hangs the set on the element. A custom value of a foreign kind is replaced without warning.
/// False after a failure, which is shown.
bool SetGazetteerProperties(host::IHost& host, const host::Ref<host::IHostElement>& element,
                            const host::Ref<host::IHostPropertySet>& properties);

/// Takes the gazetteer's set off the element and leaves everything else there.
void DeleteKeyProperties(host::IHost& host, const host::Ref<host::IHostElement>& element);

/// Inner: the gazetteer's set, walked to without any probe. Fails where a step is missing.
host::Ref<host::IHostPropertySet> StoredGazetteerProperties(
    const host::Ref<host::IHostElement>& element);

}  // namespace gazetteer
