#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace gazetteer {

/// Something that would be wrong on a printed page, found while its rows are placed.
struct PageFinding {
    enum class Kind {
        OutsideFrame,    ///< The listing stands out of the frame.
        BrokenWord,      ///< A word of the listing is longer than a line of its column.
        HeadingLeftOut,  ///< The heading before the listing found no room.
        HeadingAlone,    ///< The heading before the listing ends a column group.
    };
    static constexpr std::size_t kKinds = 4;

    Kind kind;
    std::int32_t page;
    std::string rowKey;       ///< Of the listing.
    std::string column = {};  ///< Name of the column with the broken word; else empty.
    double below = 0;         ///< Inches below the foot of the frame, and
    double atRight = 0;       ///< beyond its right edge; not positive: inside.
};

/// The first findings of each kind, and the number of all.
class PageFindings {
public:
    /// More are only counted, so that an index of a million faulty listings needs no memory.
    static constexpr std::int64_t kKeptOfAKind = 100;

    void Add(PageFinding finding);

    /// In the order in which they were found.
    const std::vector<PageFinding>& Kept() const { return kept_; }
    std::int64_t Count(PageFinding::Kind kind) const {
        return counts_[static_cast<std::size_t>(kind)];
    }

private:
    std::vector<PageFinding> kept_;
    std::array<std::int64_t, PageFinding::kKinds> counts_{};
};

}  // namespace gazetteer
