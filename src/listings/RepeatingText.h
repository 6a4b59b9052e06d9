#pragma once

#include <string>

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure: blanks the leftmost cells of a drawn row for as long as they repeat the row
/// above it. Columns whose expression has a page, row or column token are skipped. Returns the
/// same element, changed in place; the cells keep background and position.
host::Ref<host::IHostElement> ClearRepeatingText(host::IHost& host, const Settings& settings,
                                                 const WorkingResults& results,
                                                 const host::Ref<host::IHostElement>& rowGroup,
                                                 const std::string& thisRow,
                                                 const std::string& previousRow);

}  // namespace gazetteer
