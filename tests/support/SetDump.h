#pragma once

#include <set>
#include <string>

#include "host/PropertySet.h"

namespace support {

/// Everything in a set as text, a line a value, numbers to the last bit, sets and symbols spelled
/// out. Equal sets give equal texts, order included.
std::string Dump(const host::IHostPropertySet& set, const std::string& indent = "");

/// The sets and symbols below a set. Two sets that share none can be edited apart.
std::set<const host::IHostObject*> ObjectsIn(const host::IHostPropertySet& set);

}  // namespace support
