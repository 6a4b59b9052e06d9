#pragma once

#include <vector>

#include "host/Host.h"
#include "support/ErrorHandling.h"

namespace gazetteer {

/// Inner procedure: the map series frames with an index layer on a layout, in layout order. The
/// label names the calling unit in failures. Containers and groups are searched one level down.
std::vector<host::Ref<host::IHostMapFrame>> GetMapSeriesFrames(
    host::MapSeriesManager& seriesManager, const host::Ref<host::IHostObject>& layout,
    const char* label = kManagerLabel);

}  // namespace gazetteer
