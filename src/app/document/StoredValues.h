#pragma once

#include "host/Locale.h"
#include "host/PropertySet.h"
#include "manager/ElementCheck.h"

namespace app {

/// Returns what is wrong with the values that a document stores for a gazetteer, one sentence for
/// each key that is missing or whose value is of a wrong kind, with the column's name.
gazetteer::Findings FaultsOfStoredValues(const host::IHostPropertySet& properties,
                                         host::IHostLocale& locale);

}  // namespace app
