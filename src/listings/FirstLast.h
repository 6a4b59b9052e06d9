#pragma once

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure: makes the text of the first and of the last listing of every page. The text is
/// built from all sort columns but the last, each after one blank.
void PopulateFirstLastListings(host::IHost& host, const Settings& settings,
                               WorkingResults& results);

}  // namespace gazetteer
