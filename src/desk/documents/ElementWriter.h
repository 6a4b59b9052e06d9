#pragma once

#include "desk/json/JsonWriter.h"
#include "host/Elements.h"

namespace desk {

/// Writes an element with all that it holds. Fails for an element, a geometry or an object of a
/// kind that the desk does not know, and for groups or property sets nested deeper than 100.
void WriteElement(JsonWriter& writer, const host::Ref<host::IHostElement>& element, int depth = 0);

}  // namespace desk
