#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "layout/ColumnFlow.h"
#include "model/PageFindings.h"

namespace gazetteer {

/// Judges the placings of a ColumnFlow while the pages are numbered.
class PlacementFindings {
public:
    PlacementFindings(const LayoutPass& pass, PageFindings& findings)
        : pass_(pass), findings_(findings) {}

    void Placed(const PlacedRow& row, std::int32_t page);
    void LeaveHeadingOut(const std::string& rowKey);
    /// The next row opens another column group, of this page or the next.
    void EndGroup(std::int32_t page);
    /// The next row opens a page. A heading at the foot is not printed then, because a page is
    /// drawn up to its last listing.
    void EndPage();
    /// The page that is drawn ends before its last listing.
    void EndDrawing();

private:
    void JudgePlace(const PlacedRow& row, std::int32_t page);
    void TellPending(std::int32_t page);

    const LayoutPass& pass_;
    PageFindings& findings_;
    std::string heading_;  ///< Row key of the heading placed last; empty if another row followed.
    /// Headings before the next row: a heading that is left out is missing where that row stands.
    std::vector<PageFinding> pending_;
};

}  // namespace gazetteer
