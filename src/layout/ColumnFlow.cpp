#include "layout/ColumnFlow.h"

#include <utility>

#include "layout/TitlesAndBreaks.h"
#include "support/Conversions.h"

namespace gazetteer {

using Kind = PlacedRow::Kind;

FrameBounds ReadFrame(const host::IHostElement& element) {
    const auto bounds = Require<host::IHostGeometry>(element.Geometry())->Bounds();
    return {bounds->TopLeft(), bounds->Width(), bounds->Height()};
}

ColumnFlow::ColumnFlow(LayoutPass& pass, FlowRows& rows, const FrameBounds& frame,
                       FlowListener& listener)
    : pass_(pass),
      typesetting_(pass.GetSettings().typesetting),
      rows_(rows),
      listener_(listener),
      frame_(frame),
      hasTitle_(pass.HasTitle()),
      hasBreak_(pass.HasBreak()) {
    pass.MirrorBetween(frame.topLeft->X(), frame.topLeft->X() + frame.width);
    StartPage();
}

ColumnFlow::Step ColumnFlow::Feed(const std::string& rowKey) {
    if (!PlaceTitle()) return Step::TitleTooHigh;
    if (carried_) PlaceCarried();
    const bool due = IsHeadingDue(rowKey);
    const bool onTop = pageIsEmpty_ && (typesetting_.keepHeadings || !rowBefore_.empty());
    const Carried row{rowKey, rowBefore_, due};
    if (onTop)
        PlaceHeadingOnTop(row);
    else if (due && !typesetting_.keepHeadings)
        PlaceHeadingIfItFits(rowKey);

    const Step step = PlaceListing(row, due && !onTop && typesetting_.keepHeadings);
    hasPrevious_ = true;
    rowBefore_ = rowKey;
    return step;
}

void ColumnFlow::Finish() {
    if (carried_ && PlaceTitle()) PlaceCarried();
}

bool ColumnFlow::PlaceTitle() {
    if (!hasTitle_ || !topOfGroup_) return true;
    auto title = rows_.Title(*pen_);
    usedHeight_ += title.height;
    if (usedHeight_ > frame_.height) return false;
    Place({Kind::Title, {}, std::move(title.group), title.height});
    topOfGroup_ = false;
    return true;
}

bool ColumnFlow::IsHeadingDue(const std::string& rowKey) {
    if (std::exchange(atFirstListing_, false)) return NeedsTopMostBreak(pass_);
    return hasBreak_ && !rowBefore_.empty() && rows_.BeginsLetter(rowKey, rowBefore_);
}

// A heading that does not fit is dropped; it does not move with its row.
void ColumnFlow::PlaceHeadingIfItFits(const std::string& rowKey) {
    auto heading = BuildHeading(rowKey, HeadingKind::Letter);
    if (usedHeight_ + heading.height > GroupHeight()) return listener_.HeadingLeftOut(rowKey);
    PlaceHeading(rowKey, std::move(heading));
}

// Over the first listing of a column group. No test of height: see PlaceCarried.
void ColumnFlow::PlaceHeadingOnTop(const Carried& row) {
    if (row.beginsLetter) {
        if (typesetting_.keepHeadings)
            PlaceHeading(row.rowKey, BuildHeading(row.rowKey, HeadingKind::Letter));
        return;
    }
    const bool here = pageIsEmpty_ || typesetting_.continuedAt == kAtColumnGroup;
    if (here && !typesetting_.continued.empty() && !row.rowBefore.empty() &&
        rows_.HasLetter(row.rowKey))
        PlaceHeading(row.rowKey, BuildHeading(row.rowKey, HeadingKind::Continued));
}

// No test of height: at the top of a column group a row stands even if it is higher than the frame.
void ColumnFlow::PlaceCarried() {
    const Carried row = carried_.value_or(Carried());
    carried_.reset();
    PlaceHeadingOnTop(row);
    auto listing = rows_.Listing(row.rowKey, *pen_, alternate_);
    usedHeight_ += listing.height;
    Place({Kind::Carried, row.rowKey, std::move(listing.group), listing.height});
    alternate_ = !alternate_;
    pageIsEmpty_ = false;
}

// The first listing of a page is placed even if it does not fit, as a carried row is: moving it on
// would leave a page without rows. A heading and its listing fit together or not at all.
ColumnFlow::Step ColumnFlow::PlaceListing(Carried row, bool withHeading) {
    const double used = usedHeight_;
    const double top = pen_->Y();
    BuiltRow heading;
    if (withHeading) heading = BuildHeading(row.rowKey, HeadingKind::Letter);
    const bool alternate = alternate_ != (withHeading && !typesetting_.plainHeadings);
    pen_->SetY(top - heading.height);
    auto listing = rows_.Listing(row.rowKey, *pen_, alternate);
    pen_->SetY(top);
    const double height = heading.height + listing.height;
    usedHeight_ += height;
    if (usedHeight_ > GroupHeight() && !pageIsEmpty_) {
        const double width = rows_.WidthOf(row.rowKey, listing);
        listener_.GroupFull(GroupHeight() + height - usedHeight_);
        return Overflow(std::move(row), width);
    }
    usedHeight_ = used;
    if (withHeading) PlaceHeading(row.rowKey, std::move(heading));
    usedHeight_ += listing.height;
    PlacedRow placed{Kind::Listing, row.rowKey, std::move(listing.group), listing.height};
    listener_.Placing(placed, hasPrevious_, hasPrevious_ ? rowBefore_ : std::string());
    Place(std::move(placed));
    alternate_ = !alternate_;
    pageIsEmpty_ = false;
    return Step::GoOn;
}

// One gap only counts here, however many column groups the page holds already; the pen, by
// contrast, moves by width and gap of each.
ColumnFlow::Step ColumnFlow::Overflow(Carried row, double width) {
    const Settings& settings = pass_.GetSettings();
    carried_ = std::move(row);
    usedWidth_ += width;
    if (settings.repeatColumns && usedWidth_ + settings.repeatSpacing + width < frame_.width) {
        pen_->SetX(pen_->X() + width + settings.repeatSpacing);
        roomAtSide_ -= width + settings.repeatSpacing;
        ++group_;
        StartGroup();
        return Step::GoOn;
    }
    StartPage();
    return Step::PageFull;
}

BuiltRow ColumnFlow::BuildHeading(const std::string& rowKey, HeadingKind kind) {
    return rows_.Heading(rowKey, kind, *pen_, alternate_ && !typesetting_.plainHeadings);
}

void ColumnFlow::PlaceHeading(const std::string& rowKey, BuiltRow heading) {
    usedHeight_ += heading.height;
    Place({Kind::Break, rowKey, std::move(heading.group), heading.height});
    if (!typesetting_.plainHeadings) alternate_ = !alternate_;
}

double ColumnFlow::GroupHeight() const {
    return group_ < groupHeights_.size() ? groupHeights_[group_] : frame_.height;
}

void ColumnFlow::Place(PlacedRow row) {
    row.room = GroupHeight() - usedHeight_;
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
    group_ = 0;
    roomAtSide_ = frame_.width;
    for (const LayoutColumn& column : pass_.Columns()) roomAtSide_ -= column.properties.columnWidth;
    pageIsEmpty_ = true;
    StartGroup();
}

}  // namespace gazetteer
