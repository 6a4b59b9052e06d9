#pragma once

#include "host/Host.h"

/// Finds, creates, replaces and deletes the property set of a group element. The element's custom
/// value is a property set that holds "CorvaneProperties", which holds "GazetteerProperties". Both
/// containers are shared with other components, whose keys stay untouched.
namespace gazetteer {

/// Inner procedure: the custom value is a property set that holds a set "CorvaneProperties".
bool HasCorvaneProperties(const host::Ref<host::IHostElement>& element);

/// The element is a gazetteer element. False also after a failure, which is shown.
bool HasGazetteerProperties(host::IHost& host, const host::Ref<host::IHostElement>& element);

/// The stored set itself, not a copy. Shows a failure and returns null where there is none.
host::Ref<host::IHostPropertySet> GetGazetteerProperties(
    host::IHost& host, const host::Ref<host::IHostElement>& element);

/// A new set of all defaults.
host::Ref<host::IHostPropertySet> NewGazetteerProperties(host::IHost& host);

/// Stores the set on the element. A custom value of another kind is replaced without warning. False
/// after a failure, which is shown.
bool SetGazetteerProperties(host::IHost& host, const host::Ref<host::IHostElement>& element,
                            const host::Ref<host::IHostPropertySet>& properties);

/// Removes the gazetteer's set from the element and leaves everything else.
void DeleteKeyProperties(host::IHost& host, const host::Ref<host::IHostElement>& element);

/// Inner procedure: the set "CorvaneProperties"; null without one.
host::Ref<host::IHostPropertySet> CorvaneProperties(const host::Ref<host::IHostElement>& element);

/// Inner procedure: the stored set; fails where it or a container of it is missing.
host::Ref<host::IHostPropertySet> StoredGazetteerProperties(
    const host::Ref<host::IHostElement>& element);

}  // namespace gazetteer
