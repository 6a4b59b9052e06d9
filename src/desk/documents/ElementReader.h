#pragma once

#include <memory>

#include "desk/json/JsonNode.h"
#include "host/Elements.h"

namespace desk {

class TextEngine;

/// Reads an element written by WriteElement. Texts and text symbols share the engine. Throws
/// host::Failure with the place of the fault.
host::Ref<host::IHostElement> ReadElement(const JsonNode& node,
                                          const std::shared_ptr<TextEngine>& engine);

}  // namespace desk
