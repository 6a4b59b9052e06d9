#include "layout/PlacementFindings.h"

#include <utility>

namespace gazetteer {
namespace {

using Kind = PageFinding::Kind;

constexpr double kRounding = 1e-6;  // Inches; what sums of widths may be off.

}  // namespace

void PlacementFindings::Placed(const PlacedRow& row, std::int32_t page) {
    TellPending();
    heading_ = row.kind == PlacedRow::Kind::Break ? row.rowKey : std::string();
    if (row.kind == PlacedRow::Kind::Listing || row.kind == PlacedRow::Kind::Carried)
        JudgePlace(row, page);
}

void PlacementFindings::JudgePlace(const PlacedRow& row, std::int32_t page) {
    if (row.room < -kRounding || row.roomAtSide < -kRounding)
        findings_.push_back({Kind::OutsideFrame, page, row.rowKey, {}, -row.room, -row.roomAtSide});
    for (const std::string& column : pass_.BrokenColumns())
        findings_.push_back({Kind::BrokenWord, page, row.rowKey, column});
}

void PlacementFindings::LeaveHeadingOut(const std::string& rowKey, std::int32_t page) {
    findings_.push_back({Kind::HeadingLeftOut, page, rowKey});
}

void PlacementFindings::EndGroup(std::int32_t page) {
    if (!heading_.empty())
        pending_ = PageFinding{Kind::HeadingAlone, page, std::exchange(heading_, {})};
}

void PlacementFindings::EndPage() {
    if (pending_) pending_->kind = Kind::HeadingLeftOut;
    TellPending();
}

void PlacementFindings::TellPending() {
    if (!pending_) return;
    findings_.push_back(std::move(*pending_));
    pending_.reset();
}

}  // namespace gazetteer
