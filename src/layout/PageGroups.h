#pragma once

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Inner procedure: decides which listing falls on which page. Every row is built and measured as
/// it will be drawn and placed by the rules of ColumnFlow; only row keys per page are kept. Fills
/// the page groups, the page count and the first and last listings of the results, and counts in
/// the report the listings that stand out of the frame. False, with nothing changed, if there are
/// no listings to place.
bool PopulatePageGroups(host::IHost& host, const Settings& settings,
                        const host::IHostElement& frameElement,
                        const host::Ref<host::IHostFillSymbol>& transparentFill,
                        WorkingResults& results, RunReport& report);

}  // namespace gazetteer
