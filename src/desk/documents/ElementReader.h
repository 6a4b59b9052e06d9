#pragma once

#include <memory>

#include "desk/json/JsonNode.h"
#include "host/Elements.h"

namespace desk {

class TextEngine;

/// Makes an element of what WriteElement wrote; the engine goes into every text and text symbol.
/// Fails with the place of what cannot be read.
host::Ref<host::IHostElement> ReadElement(const JsonNode& node,
                                          const std::shared_ptr<TextEngine>& engine);

}  // namespace desk
