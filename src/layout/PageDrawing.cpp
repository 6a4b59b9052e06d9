#include "layout/PageDrawing.h"

#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "layout/Balance.h"
#include "layout/LayoutPass.h"
#include "layout/RowElements.h"
#include "layout/RowTree.h"
#include "layout/SetRows.h"
#include "layout/StoredPages.h"
#include "listings/RepeatingText.h"
#include "model/DefaultSymbols.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"

namespace gazetteer {
namespace {

using host::IHostElement;
using host::IHostGroupElement;
using host::Ref;

// Adds placed rows to the element, and stretches the last row of each column group.
class PageDrawer : public FlowListener {
public:
    PageDrawer(LayoutPass& pass, const Ref<IHostGroupElement>& group)
        : pass_(pass), group_(group) {}

    void SetAtLastRow(bool continues) { atLastRowOfMany_ = continues; }

    void Placing(PlacedRow& row, bool hasPrevious, const std::string& previousRow) override {
        if (!pass_.GetSettings().clearRepeatingText || !hasPrevious) return;
        row.group = ClearRepeatingText(pass_.Host(), pass_.GetSettings(), pass_.Results(),
                                       row.group, row.rowKey, previousRow);
    }

    void Placed(const PlacedRow& row) override {
        group_->Add(row.group);
        // A carried row is not stretched: the row before it is, even if that is in the column
        // group before.
        if (row.kind == PlacedRow::Kind::Break || row.kind == PlacedRow::Kind::Listing) {
            lastPlaced_ = row.group;
            lastHeight_ = row.height;
        }
        reachesFoot_ = row.kind == PlacedRow::Kind::Listing &&
                       (atLastRowOfMany_ || pass_.GetSettings().samplePage);
        if (reachesFoot_) Stretch(row.group, row.height, row.room);
    }

    void GroupFull(double room) override {
        if (lastPlaced_ && !reachesFoot_) Stretch(lastPlaced_, lastHeight_, room);
    }

private:
    // A row that ends below the frame is not stretched.
    static void Stretch(const Ref<IHostElement>& row, double height, double room) {
        if (room > 0) MakeBackgroundsSameHeight(height + room, host::As<IHostGroupElement>(row));
    }

    LayoutPass& pass_;
    Ref<IHostGroupElement> group_;
    Ref<IHostElement> lastPlaced_;
    double lastHeight_ = 0;
    bool reachesFoot_ = false;      // The row placed last is stretched already.
    bool atLastRowOfMany_ = false;  // The row is the page's last, and a page follows.
};

void PlaceRows(LayoutPass& pass, const Ref<IHostGroupElement>& group, const FrameBounds& frame,
               const StoredPage& page, std::vector<double> groupHeights) {
    PageDrawer drawer(pass, group);
    const auto rows = MakeFlowRows(pass);
    ColumnFlow flow(pass, *rows, frame, drawer);
    flow.SetGroupHeights(std::move(groupHeights));
    const bool pageFollows = page.number != pass.Results().pageCount;
    const std::string placing =
        "Page " + std::to_string(page.number) + ": Placing listings on layout: ";
    Status status(pass.Host());
    const std::int64_t count = std::ssize(page.rows);
    FeedPage(flow, page, [&](std::int64_t i) {
        status.Show(placing.c_str(), i, i + 1, count);
        drawer.SetAtLastRow(pageFollows && i + 1 == count);
    });
}

void BringTitlesToFront(IHostGroupElement& group) {
    const auto titles = MembersTagged(group, {kTitleGroupTag});
    RemoveMembers(group, titles);
    for (const auto& title : titles) group.Add(title);
}

// The text across a sample page, over the middle of the frame.
void AddSampleLabel(host::IHost& host, IHostGroupElement& group) {
    auto label = host.NewTextElement();
    label->SetSymbol(SampleLabelSymbol(host));
    label->SetText(kSampleLabel);
    const auto bounds = group.Geometry()->Bounds();
    auto center = host.NewPoint();
    center->SetX(bounds->XMin() + bounds->Width() / 2);
    center->SetY(bounds->YMin() + bounds->Height() / 2);
    label->SetGeometry(center);
    SetTag(label, kSampleLabelTag);
    group.Add(label);
}

}  // namespace

Ref<host::IHostTextSymbol> SampleLabelSymbol(host::IHost& host) {
    auto font = host.NewFont();
    font->SetSize(36);
    font->SetName("Helvetica");
    font->SetBold(true);
    auto color = host.NewColor();
    color->SetRGB(RGB(255, 0, 0));
    auto symbol = host.NewTextSymbol();
    symbol->SetFont(font);
    symbol->SetColor(color);
    symbol->SetVerticalPlacement(1);
    symbol->SetHorizontalPlacement(1);
    symbol->SetAngle(45);
    return symbol;
}

bool DrawPage(host::IHost& host, const Settings& settings, const WorkingResults& results,
              const Ref<host::IHostFillSymbol>& transparentFill,
              const Ref<IHostGroupElement>& group, std::int32_t pageNumber) try {
    const auto view = host.NewApplication()->Document()->ActiveView();
    const auto display = view->Display();
    RemoveMembers(*group, MembersTagged(*group, {kTitleGroupTag, kRowGroupTag, kBreakGroupTag,
                                                 kSampleLabelTag, kColumnTextTag}));
    const FrameBounds frame = ReadFrame(*group);
    const StoredPage page = ReadStoredPage(settings, results, pageNumber);
    if (page.rows.empty()) return false;

    const auto newPass = [&](RowSource::Use use) {
        return LayoutPass(host, settings, results, transparentFill, display, use);
    };
    std::vector<double> heights;
    if (settings.typesetting.balanceLastPage && pageNumber == results.pageCount &&
        !settings.samplePage) {
        LayoutPass measuring = newPass(RowSource::Use::Measure);
        heights = BalancedHeights(measuring, frame, page);
    }
    LayoutPass pass = newPass(RowSource::Use::Keep);
    PlaceRows(pass, group, frame, page, std::move(heights));

    BringTitlesToFront(*group);
    if (settings.samplePage) AddSampleLabel(host, *group);
    Require<host::IHostFrameElement>(group)->SetDraft(false);
    Status(host).Clear();
    view->Refresh();
    return true;
} catch (...) {
    PassOn("DrawPage", kManagerLabel);
}

void TakePageAway(const Ref<IHostGroupElement>& group) {
    RemoveMembers(*group, MembersTagged(*group, {kTitleGroupTag, kRowGroupTag, kBreakGroupTag}));
    Require<host::IHostDraftOption>(group)->SetValue(0);
}

}  // namespace gazetteer
