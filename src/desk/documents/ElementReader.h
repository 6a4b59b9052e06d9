#pragma once

#include "desk/documents/ValueReader.h"
#include "host/Elements.h"

namespace desk {

/// Makes an element of what WriteElement wrote. Fails with the place of what cannot be read.
host::Ref<host::IHostElement> ReadElement(const JsonNode& node, const ValueReader& values);

}  // namespace desk
