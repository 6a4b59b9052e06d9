#pragma once

#include "app/commands/JsonAnswer.h"
#include "host/Host.h"

namespace app {

/// The members of a drawn gazetteer as "members", in member order: generated ones with box, text
/// and symbols, lengths in inches; others with their tag and kind alone.
void WriteMembers(JsonAnswer& json, host::IHost& host, const host::IHostGroupElement& group);

/// A box as a member with "xmin", "ymin", "xmax", "ymax".
void WriteBox(JsonAnswer& json, const char* key, const host::IHostEnvelope& box);

}  // namespace app
