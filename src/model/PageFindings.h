#pragma once

#include <cstdint>
#include <deque>
#include <string>

namespace gazetteer {

/// Something that would be wrong on a printed page, found while its rows are placed.
struct PageFinding {
    enum class Kind {
        OutsideFrame,    ///< The listing stands out of the frame.
        BrokenWord,      ///< A word of the listing is longer than a line of its column.
        HeadingLeftOut,  ///< The heading before the listing found no room.
        HeadingAlone,    ///< The heading before the listing ends a column group.
    };

    Kind kind;
    std::int32_t page;
    std::string rowKey;       ///< Of the listing.
    std::string column = {};  ///< Name of the column with the broken word; else empty.
    double below = 0;         ///< Inches below the foot of the frame, and
    double atRight = 0;       ///< beyond its right edge; not positive: inside.
};

/// In the order in which they were found. All are kept, about 90 bytes each, because only a reader
/// that knows the sheet and the pages asked for can count them.
using PageFindings = std::deque<PageFinding>;

}  // namespace gazetteer
