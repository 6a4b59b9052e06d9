#pragma once

#include <nlohmann/json.hpp>

#include "host/Host.h"

namespace app {

/// The members of a drawn gazetteer as JSON, in member order: generated ones with box, text and
/// symbols, lengths in inches; others with their tag and kind alone.
nlohmann::ordered_json ElementTree(host::IHost& host, const host::IHostGroupElement& element);

/// A box as {"xmin", "ymin", "xmax", "ymax"}.
nlohmann::ordered_json BoxJson(const host::IHostEnvelope& box);

}  // namespace app
