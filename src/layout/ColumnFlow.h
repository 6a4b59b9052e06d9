#pragma once

#include <cstdint>
#include <string>

#include "layout/ElementSizes.h"
#include "layout/LayoutContext.h"

/// The placing rules, once. Deciding which row goes where happens twice: to number the pages, and
/// to draw one of them. Both feed their rows to a ColumnFlow and learn from it what was placed
/// where, so the two cannot disagree.
namespace gazetteer {

/// A row of elements that has found its place.
struct PlacedRow {
    enum class Kind { Title, Break, Listing, Carried };
    Kind kind;
    std::string rowKey;  ///< Of the listing; of a break, the row it stands before.
    host::Ref<host::IHostElement> group;
    double height = 0;  ///< Inches.
    double room = 0;    ///< Left of the frame's height below it, inches; negative if it juts out.
    double roomAtSide = 0;  ///< The same of the frame's width beside its columns.
};

/// Learns what a flow does.
class FlowListener {
public:
    virtual ~FlowListener() = default;
    /// A listing row is about to be placed and may still be changed. hasPrevious: some row went
    /// before it in this flow.
    virtual void Placing(PlacedRow& row, bool hasPrevious, const std::string& previousRow) = 0;
    /// The row stands at its place, which lies above the room given.
    virtual void Placed(const PlacedRow& row) = 0;
    /// A row did not fit. The room is what is left below the last row of the column group.
    virtual void ColumnFull(double room) = 0;
};

/// Pen and measure of the rows of a gazetteer: down a column group, on to the next one beside it,
/// and on to a new page. A row is never split. Lengths are inches.
class ColumnFlow {
public:
    enum class Step {
        GoOn,
        PageFull,      ///< The row did not fit and waits at the head of a new page.
        TitleTooHigh,  ///< The title alone is higher than the frame: nothing can be placed.
    };

    ColumnFlow(LayoutContext& context, const FrameBounds& frame, FlowListener& listener);

    /// Whether the next row fed may have a break before it as the first listing of all.
    void SetAtFirstListing() { atFirstListing_ = true; }

    /// Places the listing, and before it whatever is due: title, starting break, the row that was
    /// carried, the break between two letters. A listing that does not fit is carried on to the
    /// next column group, or to the next page.
    Step Feed(const std::string& rowKey);

    /// Places the row that is still carried once no more rows come.
    void Finish();

private:
    bool PlaceTitle();
    void PlaceBreak(const std::string& rowKey);
    void PlaceCarried();
    bool PlaceListing(const std::string& rowKey, double& width);
    Step Overflow(const std::string& rowKey, double width);

    void Place(PlacedRow row);
    double HeightOf(const host::Ref<host::IHostElement>& group);
    void StartColumn();
    void StartPage();

    LayoutContext& context_;
    FlowListener& listener_;
    FrameBounds frame_;
    bool hasTitle_;
    bool hasBreak_;
    bool atFirstListing_ = false;

    host::Ref<host::IHostPoint> pen_;  ///< Top left corner of the next row.
    double usedHeight_ = 0;            ///< Of the column group, the row under test included.
    double usedWidth_ = 0;             ///< Of the column groups ended on this page, without gaps.
    double roomAtSide_ = 0;            ///< Beside the columns of the present column group.
    bool alternate_ = false;           ///< The next row takes the alternate background.
    bool topOfColumn_ = true;          ///< The column group has no title row yet.
    bool pageIsEmpty_ = true;          ///< No listing stands on the page yet.
    bool carried_ = false;
    std::string carriedRow_;
    bool hasPrevious_ = false;
    std::string previousRow_;
};

}  // namespace gazetteer
