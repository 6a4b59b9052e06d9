#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Elements.h"

namespace app {

/// Kinds of findings, as scripts read them.
namespace findings {
inline constexpr char kOutsideSheet[] = "outside-sheet";
inline constexpr char kOutsideFrame[] = "outside-frame";
inline constexpr char kMissingField[] = "missing-field";
inline constexpr char kEmptyValue[] = "empty-value";
inline constexpr char kBrokenWord[] = "broken-word";
inline constexpr char kHeadingLeftOut[] = "heading-left-out";
inline constexpr char kHeadingAlone[] = "heading-alone";
inline constexpr char kMissingCharacter[] = "missing-character";
inline constexpr char kMissingFont[] = "missing-font";
inline constexpr char kNoPlace[] = "no-place";
inline constexpr char kOutsideGrid[] = "outside-grid";
inline constexpr char kOldResults[] = "old-results";
inline constexpr char kTableFault[] = "table-fault";
inline constexpr char kUnknownToken[] = "unknown-token";
inline constexpr char kOverlap[] = "overlap";
inline constexpr char kNoTarget[] = "no-target";
/// Of the window, which lists the reasons why a gazetteer cannot be drawn with the findings.
inline constexpr char kUndrawable[] = "undrawable";
}  // namespace findings

/// Something that would be wrong in print. A gazetteer with findings can be drawn.
struct Finding {
    std::string kind;
    std::string text;          ///< One sentence.
    std::string listing = {};  ///< Empty, as the column: of no one.
    std::string column = {};
    std::int32_t page = 0;    ///< From 1; 0: on none.
    std::int64_t record = 0;  ///< In the listing database, from 1; 0: none.
    std::string row = {};     ///< Row key of the listing in the results; empty: unknown.
    host::Ref<host::IHostElement> element = {};  ///< Which is at fault, or whose listing is.

    bool operator==(const Finding&) const = default;
};

/// Of each kind the first hundred findings, and how many there are.
class FindingList {
public:
    struct KindCount {
        std::string kind;
        std::int64_t count = 0;

        bool operator==(const KindCount&) const = default;
    };

    /// Counts a finding of this kind, and keeps what `make` returns if it is one of the first.
    template <class Make>
    void Add(const char* kind, const Make& make) {
        if (!Count(kind)) return;
        kept_.push_back(make());
        kept_.back().kind = kind;
    }

    bool IsEmpty() const { return counts_.empty(); }
    std::int64_t Total() const;
    const std::vector<Finding>& Kept() const { return kept_; }
    /// In the order in which the kinds were first found.
    const std::vector<KindCount>& Counts() const { return counts_; }

    /// The findings of one kind.
    struct Kind {
        std::string title;  ///< Such as "Empty values".
        std::int64_t count = 0;
        std::vector<const Finding*> told = {};  ///< The first five.
        std::string summary = {};  ///< A sentence with their number if there are more; of listings
                                   ///< without a place always.
        std::vector<const Finding*> more = {};  ///< Kept, but not told.
    };
    /// Returns them in the order in which the kinds were first found; valid until the list changes.
    std::vector<Kind> Kinds() const;
    /// Returns what is told: the first sentences and the summary of each kind.
    std::vector<std::string> Sentences() const;

    bool operator==(const FindingList&) const = default;

private:
    // Returns whether the finding is one of the first of its kind.
    bool Count(std::string_view kind);

    std::vector<Finding> kept_;
    std::vector<KindCount> counts_;
};

}  // namespace app
