#pragma once

#include <cstdint>
#include <string>

#include "layout/LayoutPass.h"

/// The placing rules. Rows are placed twice: to number the pages, and to draw one of them. Both
/// passes feed their rows to a ColumnFlow, which reports to its listener where each row is placed,
/// so that the two agree.
namespace gazetteer {

/// The gazetteer element's own bounds, in inches.
struct FrameBounds {
    host::Ref<host::IHostPoint> topLeft;
    double width = 0;
    double height = 0;
};
FrameBounds ReadFrame(const host::IHostElement& element);

/// A row of elements with its place.
struct PlacedRow {
    enum class Kind { Title, Break, Listing, Carried };
    Kind kind;
    std::string rowKey;  ///< Of the listing; of a break, the row it stands before.
    host::Ref<host::IHostElement> group;
    double height = 0;  ///< Inches.
    double room = 0;    ///< Left of the frame's height below it, inches; negative if it juts out.
    double roomAtSide = 0;  ///< The same of the frame's width beside its columns.
};

/// Receives the placings of a flow.
class FlowListener {
public:
    virtual ~FlowListener() = default;
    /// A listing row is about to be placed and may still be changed. hasPrevious: some row went
    /// before it in this flow.
    virtual void Placing(PlacedRow& row, bool hasPrevious, const std::string& previousRow) = 0;
    /// The row has been placed.
    virtual void Placed(const PlacedRow& row) = 0;
    /// The heading before a listing did not fit and is dropped.
    virtual void HeadingLeftOut(const std::string& /*rowKey*/) {}
    /// A row did not fit. The room is what is left below the last row of the column group.
    virtual void GroupFull(double room) = 0;
};

/// Places the rows of a gazetteer: down a column group, then in the next group beside it, then on a
/// new page. A row is never split. Lengths are inches.
class ColumnFlow {
public:
    enum class Step {
        GoOn,
        PageFull,      ///< The row did not fit and is carried to a new page.
        TitleTooHigh,  ///< The title alone is higher than the frame: nothing can be placed.
    };

    ColumnFlow(LayoutPass& pass, const FrameBounds& frame, FlowListener& listener);

    /// The next row fed is the first listing of all and may have a break before it.
    void SetAtFirstListing() { atFirstListing_ = true; }

    /// Places the listing, and before it what is due: title, starting break, carried row, break
    /// between two letters. A listing that does not fit is carried to the next column group or
    /// page.
    Step Feed(const std::string& rowKey);

    /// Call after the last row: places the row that is still carried.
    void Finish();

private:
    bool PlaceTitle();
    void PlaceBreak(const std::string& rowKey);
    void PlaceCarried();
    bool PlaceListing(const std::string& rowKey, double& width);
    Step Overflow(const std::string& rowKey, double width);

    void Place(PlacedRow row);
    void StartGroup();
    void StartPage();

    LayoutPass& pass_;
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
    bool topOfGroup_ = true;           ///< The column group has no title row yet.
    bool pageIsEmpty_ = true;          ///< No listing stands on the page yet.
    bool carried_ = false;
    std::string carriedRow_;
    bool hasPrevious_ = false;
    std::string previousRow_;
};

}  // namespace gazetteer
