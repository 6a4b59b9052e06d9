#include "layout/PlacementFindings.h"

#include <utility>

namespace gazetteer {
namespace {

using Kind = PageFinding::Kind;

constexpr double kRounding = 1e-6;  // Inches; what sums of widths may be off.

}  // namespace

void PlacementFindings::Placed(const PlacedRow& row, std::int32_t page) {
    TellPending(page);
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

void PlacementFindings::LeaveHeadingOut(const std::string& rowKey) {
    pending_.push_back({Kind::HeadingLeftOut, 0, rowKey});
}

void PlacementFindings::EndGroup(std::int32_t page) {
    if (heading_.empty()) return;
    pending_.push_back({Kind::HeadingAlone, page, heading_});
    heading_.clear();
}

void PlacementFindings::EndPage() {
    for (PageFinding& finding : pending_) finding.kind = Kind::HeadingLeftOut;
}

void PlacementFindings::EndDrawing() {
    std::erase_if(pending_, [](const auto& finding) { return finding.kind != Kind::HeadingAlone; });
    TellPending(0);
}

void PlacementFindings::TellPending(std::int32_t page) {
    for (PageFinding& finding : pending_) {
        if (finding.kind == Kind::HeadingLeftOut) finding.page = page;
        findings_.push_back(std::move(finding));
    }
    pending_.clear();
}

}  // namespace gazetteer
