#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/document/FindingList.h"
#include "app/document/OpenDocument.h"

namespace app {

/// Returns the text of a listing's first column, without what is resolved at drawing.
std::string ListingText(const OpenDocument& open, const std::string& rowKey);

struct ListingPlace {
    std::int32_t page = 0;  ///< From 1; 0: on none.
    std::string rowKey = {};
};

/// Returns where the listing of a finding of the chosen gazetteer stands: that of its row or, if
/// its record was combined into another listing, the first one with its text. Only the page of the
/// finding if there is none.
ListingPlace PlaceOf(const OpenDocument& open, const Finding& finding);

/// A cell that is drawn in the chosen gazetteer.
struct DrawnCell {
    std::string rowKey;  ///< Of the listing; of a heading, the listing that it stands before.
    std::string column;
    bool heading = false;
    host::Ref<host::IHostEnvelope> box;
};

/// Returns the cells of listings and headings of the page that is drawn now, which is the page of
/// this number.
std::vector<DrawnCell> DrawnCells(const OpenDocument& open, std::int32_t page);

}  // namespace app
