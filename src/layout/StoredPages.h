#pragma once

#include <functional>
#include <string>
#include <vector>

#include "layout/ColumnFlow.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// A page as the results keep it.
struct StoredPage {
    std::int32_t number = 1;
    std::vector<std::string> rows;  ///< Row keys.
    std::string
        rowBefore;  ///< The last one of the page before, where headings look back; or empty.
};
StoredPage ReadStoredPage(const Settings& settings, const WorkingResults& results,
                          std::int32_t number);

/// Feeds the listings of a stored page to a new flow, up to the first that no longer fits: the page
/// may have been numbered for a larger frame. Calls before with the index of each listing to be
/// fed. Returns the number of listings that stand on the page.
std::size_t FeedPage(ColumnFlow& flow, const StoredPage& page,
                     const std::function<void(std::int64_t)>& before);

/// Finds what would be wrong on the stored pages, drawn in the present frame with the present
/// settings. They need not be those that a new numbering would give. Changes no results.
PageFindings JudgeStoredPages(host::IHost& host, const Settings& settings,
                              const host::IHostElement& frameElement,
                              const host::Ref<host::IHostFillSymbol>& transparentFill,
                              const WorkingResults& results);

}  // namespace gazetteer
