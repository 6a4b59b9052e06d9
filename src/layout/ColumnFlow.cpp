#include "layout/ColumnFlow.h"

#include "layout/RowElements.h"
#include "layout/TitlesAndBreaks.h"
#include "support/Conversions.h"

namespace gazetteer {

using Kind = PlacedRow::Kind;

FrameBounds ReadFrame(const host::IHostElement& element) {
    const auto bounds = Require<host::IHostGeometry>(element.Geometry())->Bounds();
    return {bounds->TopLeft(), bounds->Width(), bounds->Height()};
}

ColumnFlow::ColumnFlow(LayoutPass& pass, const FrameBounds& frame, FlowListener& listener)
    : pass_(pass),
      listener_(listener),
      frame_(frame),
      hasTitle_(pass.HasTitle()),
      hasBreak_(pass.HasBreak()) {
    StartPage();
}

ColumnFlow::Step ColumnFlow::Feed(const std::string& rowKey) {
    if (!PlaceTitle()) return Step::TitleTooHigh;
    if (atFirstListing_ && NeedsTopMostBreak(pass_)) PlaceBreak(rowKey);
    atFirstListing_ = false;
    if (carried_) PlaceCarried();
    if (hasBreak_ && hasPrevious_ && RowNeedsBreak(pass_, rowKey, previousRow_)) PlaceBreak(rowKey);

    double width = 0;
    const Step step = PlaceListing(rowKey, width) ? Step::GoOn : Overflow(rowKey, width);
    hasPrevious_ = true;
    previousRow_ = rowKey;
    return step;
}

void ColumnFlow::Finish() {
    if (carried_ && PlaceTitle()) PlaceCarried();
}

bool ColumnFlow::PlaceTitle() {
    if (!hasTitle_ || !topOfGroup_) return true;
    auto group = MakeTitleGroup(pass_, *pen_);
    const double height = pass_.GetElementHeight(*group);
    usedHeight_ += height;
    if (usedHeight_ > frame_.height) return false;
    Place({Kind::Title, {}, std::move(group), height});
    topOfGroup_ = false;
    return true;
}

// A break that does not fit is dropped; it does not move with its row.
void ColumnFlow::PlaceBreak(const std::string& rowKey) {
    auto group = MakeBreakGroup(pass_, rowKey, *pen_, alternate_);
    const double height = pass_.GetElementHeight(*group);
    if (usedHeight_ + height > frame_.height) return listener_.HeadingLeftOut(rowKey);
    usedHeight_ += height;
    Place({Kind::Break, rowKey, std::move(group), height});
    alternate_ = !alternate_;
}

// No test of height: at the top of a column group a row stands even if it is higher than the frame.
void ColumnFlow::PlaceCarried() {
    auto group = MakeRowGroup(pass_, carriedRow_, *pen_, alternate_);
    const double height = pass_.GetElementHeight(*group);
    usedHeight_ += height;
    Place({Kind::Carried, carriedRow_, std::move(group), height});
    alternate_ = !alternate_;
    carried_ = false;
    pageIsEmpty_ = false;
}

// The first listing of a page is placed even if it does not fit, as a carried row is: moving it on
// would leave a page without rows.
bool ColumnFlow::PlaceListing(const std::string& rowKey, double& width) {
    PlacedRow row{Kind::Listing, rowKey, MakeRowGroup(pass_, rowKey, *pen_, alternate_)};
    row.height = pass_.GetElementHeight(*row.group);
    usedHeight_ += row.height;
    if (usedHeight_ > frame_.height && !pageIsEmpty_) {
        width = pass_.GetElementWidth(*row.group);
        listener_.GroupFull(frame_.height + row.height - usedHeight_);
        return false;
    }
    listener_.Placing(row, hasPrevious_, previousRow_);
    Place(std::move(row));
    alternate_ = !alternate_;
    pageIsEmpty_ = false;
    return true;
}

// One gap only counts here, however many column groups the page holds already; the pen, by
// contrast, moves by width and gap of each.
ColumnFlow::Step ColumnFlow::Overflow(const std::string& rowKey, double width) {
    const Settings& settings = pass_.GetSettings();
    carried_ = true;
    carriedRow_ = rowKey;
    usedWidth_ += width;
    if (settings.repeatColumns && usedWidth_ + settings.repeatSpacing + width < frame_.width) {
        pen_->SetX(pen_->X() + width + settings.repeatSpacing);
        roomAtSide_ -= width + settings.repeatSpacing;
        StartGroup();
        return Step::GoOn;
    }
    StartPage();
    return Step::PageFull;
}

void ColumnFlow::Place(PlacedRow row) {
    row.room = frame_.height - usedHeight_;
    row.roomAtSide = roomAtSide_;
    listener_.Placed(row);
    pen_->SetY(pen_->Y() - row.height);
}

void ColumnFlow::StartGroup() {
    pen_->SetY(frame_.topLeft->Y());
    topOfGroup_ = true;
    alternate_ = false;
    usedHeight_ = 0;
}

void ColumnFlow::StartPage() {
    pen_ = host::As<host::IHostPoint>(frame_.topLeft->Copy());
    usedWidth_ = 0;
    roomAtSide_ = frame_.width;
    for (const LayoutColumn& column : pass_.Columns()) roomAtSide_ -= column.properties.columnWidth;
    pageIsEmpty_ = true;
    StartGroup();
}

}  // namespace gazetteer
