#pragma once

#include "desk/json/JsonWriter.h"
#include "host/Elements.h"

namespace desk {

/// Writes an element and everything in it. Throws for an element, geometry or object of an unknown
/// kind, and for groups or property sets nested deeper than kDeepestNesting.
void WriteElement(JsonWriter& writer, const host::Ref<host::IHostElement>& element, int depth = 0);

}  // namespace desk
