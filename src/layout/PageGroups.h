#pragma once

#include "host/Host.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Decides which listing falls on which page. Every row is built and measured as it will be drawn
/// and placed by the rules of ColumnFlow; only row keys per page are kept. Fills the page groups
/// and the page count of the results, and reports what would be wrong on the pages. False, with
/// nothing changed, if there are no listings or columns to place.
bool NumberPages(host::IHost& host, const Settings& settings,
                 const host::IHostElement& frameElement,
                 const host::Ref<host::IHostFillSymbol>& transparentFill, WorkingResults& results,
                 RunReport& report);

/// Inner procedure: numbers the pages, and fills the first and last listings of the results, too.
bool PopulatePageGroups(host::IHost& host, const Settings& settings,
                        const host::IHostElement& frameElement,
                        const host::Ref<host::IHostFillSymbol>& transparentFill,
                        WorkingResults& results, RunReport& report);

}  // namespace gazetteer
