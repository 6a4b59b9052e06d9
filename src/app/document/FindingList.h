#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
}  // namespace findings

/// Something that would be wrong in print. A gazetteer with findings can be drawn.
struct Finding {
    std::string kind;
    std::string text;          ///< One sentence.
    std::string listing = {};  ///< Empty, as the column: of no one.
    std::string column = {};
    std::int32_t page = 0;    ///< From 1; 0: on none.
    std::int64_t record = 0;  ///< In the listing database, from 1; 0: none.
};

/// Of each kind the first hundred findings, and how many there are.
class FindingList {
public:
    struct KindCount {
        std::string kind;
        std::int64_t count = 0;
    };

    /// Counts a finding. Returns whether it is to be added, as one of the first of its kind.
    bool Count(std::string_view kind);
    void Add(Finding finding) { kept_.push_back(std::move(finding)); }

    bool IsEmpty() const { return counts_.empty(); }
    std::int64_t Total() const;
    const std::vector<Finding>& Kept() const { return kept_; }
    /// In the order in which the kinds were first found.
    const std::vector<KindCount>& Counts() const { return counts_; }

    /// Returns the first five sentences of each kind and, where there are more, one with their
    /// number; of listings without a place always.
    std::vector<std::string> Sentences() const;

private:
    std::vector<Finding> kept_;
    std::vector<KindCount> counts_;
};

}  // namespace app
