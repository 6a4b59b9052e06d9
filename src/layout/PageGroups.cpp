#include "layout/PageGroups.h"

#include <iterator>
#include <string>

#include "layout/ColumnFlow.h"
#include "layout/LayoutPass.h"
#include "layout/PlacementFindings.h"
#include "layout/SetRows.h"
#include "listings/FirstLast.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"

namespace gazetteer {
namespace {

// Records the row keys of each page.
class PageRecorder : public FlowListener {
public:
    PageRecorder(LayoutPass& pass, RunReport& report)
        : host_(pass.Host()), judge_(pass, report.onPages), pages_(host_.NewPropertySet()) {}

    void OpenPage() {
        rows_ = host_.NewPropertySet();
        ++pageNumber_;
        open_ = true;
    }
    void ClosePage() {
        if (rows_ && rows_->Count() > 0)
            pages_->SetItem(std::to_string(pageNumber_), host::Ref<host::IHostObject>(rows_));
        rows_ = nullptr;
        open_ = false;
        judge_.EndPage();
    }
    bool IsOpen() const { return open_; }
    std::int32_t PageNumber() const { return pageNumber_; }
    const host::Ref<host::IHostPropertySet>& Pages() const { return pages_; }

    void Placing(PlacedRow&, bool, const std::string&) override {}
    void Placed(const PlacedRow& row) override {
        judge_.Placed(row, pageNumber_);
        if (row.kind == PlacedRow::Kind::Listing || row.kind == PlacedRow::Kind::Carried)
            rows_->SetItem(row.rowKey, row.rowKey);
    }
    void HeadingLeftOut(const std::string& rowKey) override { judge_.LeaveHeadingOut(rowKey); }
    void GroupFull(double) override { judge_.EndGroup(pageNumber_); }

private:
    host::IHost& host_;
    PlacementFindings judge_;
    host::Ref<host::IHostPropertySet> pages_;
    host::Ref<host::IHostPropertySet> rows_;
    std::int32_t pageNumber_ = 0;
    bool open_ = false;
};

std::string PlacingText(std::int32_t page) {
    return "Laying out each page: " + std::to_string(page) + ": Placing graphics on page: ";
}

// Feeds all listings to the flow; every overflow of the page's width closes a page.
void PlaceListings(LayoutPass& pass, const FrameBounds& frame, PageRecorder& pages) {
    const auto built = MakeFlowRows(pass);
    ColumnFlow flow(pass, *built, frame, pages);
    flow.SetAtFirstListing();
    Status status(pass.Host());
    std::string placing;
    std::int64_t index = 0;
    const auto rows = NamesOf(*pass.Columns().front().listings);
    for (const std::string& row : rows) {
        if (!pages.IsOpen()) {
            pages.OpenPage();
            placing = PlacingText(pages.PageNumber());
        }
        status.Show(placing.c_str(), index, index + 1, std::ssize(rows));
        ++index;
        const auto step = flow.Feed(row);
        if (step == ColumnFlow::Step::TitleTooHigh) return;
        if (step != ColumnFlow::Step::PageFull) continue;
        pages.ClosePage();
        // A sample has one page; the carried row is not stored.
        if (pass.GetSettings().samplePage) return;
    }
    if (!pages.IsOpen()) pages.OpenPage();
    flow.Finish();
}

}  // namespace

bool NumberPages(host::IHost& host, const Settings& settings,
                 const host::IHostElement& frameElement,
                 const host::Ref<host::IHostFillSymbol>& transparentFill, WorkingResults& results,
                 RunReport& report) {
    const auto display = host.NewApplication()->Document()->ActiveView()->Display();
    const FrameBounds frame = ReadFrame(frameElement);
    if (results.listings->Count() == 0) return false;
    LayoutPass pass(host, settings, results, transparentFill, display, RowSource::Use::Measure);
    if (pass.Columns().empty()) return false;
    PageRecorder pages(pass, report);
    PlaceListings(pass, frame, pages);
    pages.ClosePage();
    results.pageGroups = pages.Pages();
    results.pageCount = results.pageGroups->Count();
    return true;
}

bool PopulatePageGroups(host::IHost& host, const Settings& settings,
                        const host::IHostElement& frameElement,
                        const host::Ref<host::IHostFillSymbol>& transparentFill,
                        WorkingResults& results, RunReport& report) try {
    if (!NumberPages(host, settings, frameElement, transparentFill, results, report)) return false;
    PopulateFirstLastListings(host, settings, results);
    Status(host).Clear();
    return true;
} catch (...) {
    PassOn("PopulatePageGroups", kManagerLabel);
}

}  // namespace gazetteer
