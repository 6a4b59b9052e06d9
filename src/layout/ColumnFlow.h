#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "layout/FlowRows.h"
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

    ColumnFlow(LayoutPass& pass, FlowRows& rows, const FrameBounds& frame, FlowListener& listener);

    /// The next row fed is the first listing of all and may have a break before it.
    void SetAtFirstListing() { atFirstListing_ = true; }
    /// The next row fed goes on behind this one, which stands on another page.
    void SetRowBefore(std::string rowKey) { rowBefore_ = std::move(rowKey); }
    /// Heights of the first column groups of a page that end above the foot of the frame.
    void SetGroupHeights(std::vector<double> heights) { groupHeights_ = std::move(heights); }

    /// Places the listing, and before it what is due: title, starting break, carried row, break
    /// between two letters. A listing that does not fit is carried to the next column group or
    /// page, and with KeepHeadings its heading with it.
    Step Feed(const std::string& rowKey);

    /// Call after the last row: places the row that is still carried.
    void Finish();

    /// Column groups begun on the present page.
    std::size_t Groups() const { return group_ + 1; }

private:
    /// A row on its way to the next column group.
    struct Carried {
        std::string rowKey;
        std::string rowBefore;  ///< Empty for the first of all.
        bool beginsLetter = false;
    };

    bool PlaceTitle();
    bool IsHeadingDue(const std::string& rowKey);
    void PlaceHeadingIfItFits(const std::string& rowKey);
    void PlaceHeadingOnTop(const Carried& row);
    void PlaceCarried();
    Step PlaceListing(Carried row, bool withHeading);
    Step Overflow(Carried row, double width);

    BuiltRow BuildHeading(const std::string& rowKey, HeadingKind kind);
    void PlaceHeading(const std::string& rowKey, BuiltRow heading);
    void Place(PlacedRow row);
    void StartGroup();
    void StartPage();
    double GroupHeight() const;

    LayoutPass& pass_;
    const Typesetting& typesetting_;
    FlowRows& rows_;
    FlowListener& listener_;
    FrameBounds frame_;
    bool hasTitle_;
    bool hasBreak_;
    bool atFirstListing_ = false;
    std::vector<double> groupHeights_;

    host::Ref<host::IHostPoint> pen_;  ///< Top left corner of the next row.
    std::size_t group_ = 0;            ///< Index of the column group on its page.
    double usedHeight_ = 0;            ///< Of the column group, the row under test included.
    double usedWidth_ = 0;             ///< Of the column groups ended on this page, without gaps.
    double roomAtSide_ = 0;            ///< Beside the columns of the present column group.
    bool alternate_ = false;           ///< The next row takes the alternate background.
    bool topOfGroup_ = true;           ///< The column group has no title row yet.
    bool pageIsEmpty_ = true;          ///< No listing stands on the page yet.
    std::optional<Carried> carried_;
    std::string rowBefore_;  ///< The row fed last, or one on the page before; empty: none.
    bool hasPrevious_ = false;
};

}  // namespace gazetteer
