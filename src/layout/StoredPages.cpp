#include "layout/StoredPages.h"

#include <iterator>

#include "layout/PageGroups.h"
#include "layout/PlacementFindings.h"
#include "layout/SetRows.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"

namespace gazetteer {
namespace {

using host::IHostPropertySet;

// Passes what happens on one page on to the judge.
class PageJudge : public FlowListener {
public:
    PageJudge(PlacementFindings& judge, std::int32_t pageNumber)
        : judge_(judge), pageNumber_(pageNumber) {}

    void Placing(PlacedRow&, bool, const std::string&) override {}
    void Placed(const PlacedRow& row) override { judge_.Placed(row, pageNumber_); }
    void HeadingLeftOut(const std::string& rowKey) override { judge_.LeaveHeadingOut(rowKey); }
    void GroupFull(double) override { judge_.EndGroup(pageNumber_); }

private:
    PlacementFindings& judge_;
    std::int32_t pageNumber_;
};

std::vector<std::string> RowsOf(const host::Variant& page) {
    const auto rows = ToObject<IHostPropertySet>(page);
    return rows ? NamesOf(*rows) : std::vector<std::string>();
}

bool AreSamePages(const IHostPropertySet& left, const IHostPropertySet& right) {
    const auto lefts = left.AllItems();
    const auto rights = right.AllItems();
    if (lefts.names != rights.names) return false;
    for (std::size_t i = 0; i < lefts.values.size(); ++i)
        if (RowsOf(lefts.values[i]) != RowsOf(rights.values[i])) return false;
    return true;
}

}  // namespace

StoredPage ReadStoredPage(const Settings& settings, const WorkingResults& results,
                          std::int32_t number) {
    const auto rowsOf = [&](std::int32_t page) {
        return NamesOf(*SetUnder(*results.pageGroups, std::to_string(page)));
    };
    StoredPage page{number, rowsOf(number), {}};
    const Typesetting& typesetting = settings.typesetting;
    if (number > 1 && (typesetting.keepHeadings || !typesetting.continued.empty()))
        if (auto before = rowsOf(number - 1); !before.empty()) page.rowBefore = before.back();
    return page;
}

std::size_t FeedPage(ColumnFlow& flow, const StoredPage& page,
                     const std::function<void(std::int64_t)>& before) {
    if (page.number == 1) flow.SetAtFirstListing();
    flow.SetRowBefore(page.rowBefore);
    for (std::size_t i = 0; i < page.rows.size(); ++i) {
        before(static_cast<std::int64_t>(i));
        if (flow.Feed(page.rows[i]) != ColumnFlow::Step::GoOn) return i;
    }
    flow.Finish();
    return page.rows.size();
}

// Where a new numbering gives the stored pages, its findings are theirs. Only the numbering knows
// of a heading that was left out between two pages.
PageFindings JudgeStoredPages(host::IHost& host, const Settings& settings,
                              const host::IHostElement& frameElement,
                              const host::Ref<host::IHostFillSymbol>& transparentFill,
                              const WorkingResults& results) try {
    WorkingResults numbered = results;
    RunReport report;
    if (!NumberPages(host, settings, frameElement, transparentFill, numbered, report)) return {};
    if (AreSamePages(*numbered.pageGroups, *results.pageGroups)) return report.onPages;

    PageFindings found;
    const auto display = host.NewApplication()->Document()->ActiveView()->Display();
    const FrameBounds frame = ReadFrame(frameElement);
    LayoutPass pass(host, settings, results, transparentFill, display, RowSource::Use::Measure);
    PlacementFindings judge(pass, found);
    Status status(host);
    const auto rows = MakeFlowRows(pass);
    for (std::int32_t number = 1; number <= results.pageGroups->Count(); ++number) {
        const StoredPage page = ReadStoredPage(settings, results, number);
        PageJudge listener(judge, number);
        ColumnFlow flow(pass, *rows, frame, listener);
        auto placed = FeedPage(flow, page, [&](std::int64_t i) {
            status.Show("Checking the page: listing ", i + 1, i + 1, std::ssize(page.rows));
        });
        judge.EndDrawing();
        for (; placed < page.rows.size(); ++placed)
            found.push_back({PageFinding::Kind::NotDrawn, number, page.rows[placed]});
    }
    status.Clear();
    return found;
} catch (...) {
    PassOn("JudgeStoredPages", "StoredPages");
}

}  // namespace gazetteer
