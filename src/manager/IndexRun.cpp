#include <utility>

#include "layout/PageGroups.h"
#include "listings/Combine.h"
#include "listings/IndexTable.h"
#include "manager/CVNGazetteerManager.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"

/// The run, from the rows of the listing database to stored pages. Only binding an element starts
/// it; drawing a page uses its results.
namespace gazetteer {

void CVNGazetteerManager::PopulateIndexTable() try {
    RunReport report;
    const ListingSource source{check_.databaseTable, check_.linkValid, check_.seriesMapFrame,
                               check_.indexLayerTable};
    const auto indexTable = MakeIndexTempTable(*host_, settings_);
    report.records = ComposeIndexTable(*host_, settings_, siblings_, source, *indexTable);
    if (report.records == 0) {
        canDraw_ = false;
        findings_ = {"The listing database has no records."};
        return;
    }
    const auto rows = OrderIndexTable(*host_, settings_, indexTable);
    working_.listings = PopulateRowValuesPropertySet(*host_, settings_, *rows, *indexTable, report);
    if (!PopulatePageGroups(*host_, settings_, *indexElement_, transparentFill_, working_,
                            report)) {
        canDraw_ = false;
        findings_ = {"The gazetteer has no columns to display."};
    }
    if (canDraw_) {
        for (const auto& page : working_.pageGroups->AllItems().values)
            report.placed += ToObject<host::IHostPropertySet>(page)->Count();
        if (!settings_.autoRefreshListings) StoreResults();
    }
    Status(*host_).Clear();
    report_ = std::move(report);
    hasRun_ = canDraw_;
    pagesJudged_ = canDraw_;
} catch (...) {
    PassOn("PopulateIndexTable", kManagerLabel);
}

const PageFindings& CVNGazetteerManager::FindingsOnPages() try {
    if (pagesJudged_ || !canDraw_ || !working_.listings) return report_.onPages;
    WorkingResults results = working_;
    RunReport report;
    PopulatePageGroups(*host_, settings_, *indexElement_, transparentFill_, results, report);
    report_.onPages = std::move(report.onPages);
    pagesJudged_ = true;
    return report_.onPages;
} catch (...) {
    PassOn("FindingsOnPages", kManagerLabel);
}

// A manager of its own stores the set on the element, as any other caller would. The flag that
// there are results is stored last: after a failure half-way, the next binding runs again.
void CVNGazetteerManager::StoreResults() {
    using host::IHostObject;
    using host::Ref;
    properties_->SetItem(keys::kSavedListings, Ref<IHostObject>(working_.listings));
    properties_->SetItem(keys::kPageGroups, Ref<IHostObject>(working_.pageGroups));
    properties_->SetItem(keys::kPageFirstListings, Ref<IHostObject>(working_.firstListings));
    properties_->SetItem(keys::kPageLastListings, Ref<IHostObject>(working_.lastListings));
    properties_->SetItem(keys::kHaveSavedListings, true);
    CVNGazetteerManager(host_).AddGazetteerProperties(indexElement_, properties_);
}

}  // namespace gazetteer
