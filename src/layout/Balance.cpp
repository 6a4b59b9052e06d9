#include "layout/Balance.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

#include "layout/ColumnFlow.h"
#include "layout/SetRows.h"

namespace gazetteer {
namespace {

constexpr double kExact = 0.01;  // Inches; below the height of any row.

// The heights of rows, each measured once. Serves flows of one page.
class KnownHeights : public FlowRows {
public:
    explicit KnownHeights(LayoutPass& pass) : rows_(MakeFlowRows(pass)) {}

    BuiltRow Title(const host::IHostPoint& position) override {
        if (!title_) title_ = rows_->Title(position).height;
        return {nullptr, *title_};
    }
    BuiltRow Heading(const std::string& rowKey, HeadingKind kind, const host::IHostPoint& position,
                     bool alternate) override {
        auto& height = known_[rowKey].heading;
        if (!height) height = rows_->Heading(rowKey, kind, position, alternate).height;
        return {nullptr, *height};
    }
    BuiltRow Listing(const std::string& rowKey, const host::IHostPoint& position,
                     bool alternate) override {
        Row& row = known_[rowKey];
        if (!row.height) {
            const auto built = rows_->Listing(rowKey, position, alternate);
            row.height = built.height;
            row.width = rows_->WidthOf(rowKey, built);
        }
        return {nullptr, *row.height};
    }
    double WidthOf(const std::string& rowKey, const BuiltRow&) override {
        return known_[rowKey].width;
    }
    bool BeginsLetter(const std::string& rowKey, const std::string& previousRow) override {
        auto& begins = known_[rowKey].beginsLetter;
        if (!begins) begins = rows_->BeginsLetter(rowKey, previousRow);
        return *begins;
    }
    bool HasLetter(const std::string& rowKey) override { return rows_->HasLetter(rowKey); }

private:
    struct Row {
        std::optional<double> height;
        double width = 0;
        std::optional<double> heading;  // Before a row stands one kind of heading or the other.
        std::optional<bool> beginsLetter;
    };

    std::unique_ptr<FlowRows> rows_;
    std::optional<double> title_;
    std::unordered_map<std::string, Row> known_;
};

// What one placing of the page needs.
class Measure : public FlowListener {
public:
    void Placing(PlacedRow&, bool, const std::string&) override {}
    void Placed(const PlacedRow& row) override {
        total += row.height;
        tallest = std::max(tallest, row.height);
    }
    void HeadingLeftOut(const std::string& rowKey) override { leftOut.insert(rowKey); }
    void GroupFull(double) override {}

    double total = 0;    // Of all rows, inches.
    double tallest = 0;  // Row.
    std::set<std::string> leftOut;
};

class Balancer {
public:
    Balancer(LayoutPass& pass, const FrameBounds& frame, const StoredPage& page)
        : pass_(pass), rows_(pass), frame_(frame), page_(page) {}

    std::vector<double> Heights() {
        const std::size_t groups = MostGroups();
        if (groups < 2) return {};
        Measure all;
        if (!Place({}, all)) return {};
        leftOut_ = all.leftOut;
        const double step = 2 * all.tallest;
        std::vector<double> heights(groups, frame_.height);
        double most = std::min(frame_.height, all.total / static_cast<double>(groups) + step);
        for (std::size_t group = 0; group + 1 < groups; ++group) {
            most = LeastFrom(heights, group, std::max(0.0, most - 2 * step), most);
            heights[group] = most;
        }
        return heights;
    }

private:
    bool Place(const std::vector<double>& heights, Measure& measure) {
        ColumnFlow flow(pass_, rows_, frame_, measure);
        flow.SetGroupHeights(heights);
        return FeedPage(flow, page_, [](std::int64_t) {}) == page_.rows.size();
    }

    // All rows fit, and all headings that the page has without these heights.
    bool Fits(const std::vector<double>& heights) {
        Measure measure;
        return Place(heights, measure) && std::ranges::includes(leftOut_, measure.leftOut);
    }

    // Column groups that fit beside each other, at most one for each listing.
    std::size_t MostGroups() {
        Measure measure;
        ColumnFlow flow(pass_, rows_, frame_, measure);
        flow.SetGroupHeights(std::vector<double>(page_.rows.size(), 0.0));
        std::size_t groups = 1;
        for (const std::string& row : page_.rows) {
            if (flow.Feed(row) != ColumnFlow::Step::GoOn) break;
            groups = std::max(groups, flow.Groups());
        }
        return groups;
    }

    // The least height between the two of this group and all behind it.
    double LeastFrom(std::vector<double>& heights, std::size_t group, double least, double most) {
        const auto fits = [&](double height) {
            std::fill(heights.begin() + static_cast<std::ptrdiff_t>(group), heights.end(), height);
            return Fits(heights);
        };
        if (!fits(most)) most = frame_.height;
        while (most - least > kExact) {
            const double middle = (least + most) / 2;
            (fits(middle) ? most : least) = middle;
        }
        std::fill(heights.begin() + static_cast<std::ptrdiff_t>(group), heights.end(), most);
        return most;
    }

    LayoutPass& pass_;
    KnownHeights rows_;
    const FrameBounds& frame_;
    const StoredPage& page_;
    std::set<std::string> leftOut_;  // Headings that the page has no room for at full height.
};

}  // namespace

std::vector<double> BalancedHeights(LayoutPass& pass, const FrameBounds& frame,
                                    const StoredPage& page) {
    return Balancer(pass, frame, page).Heights();
}

}  // namespace gazetteer
