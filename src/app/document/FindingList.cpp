#include "app/document/FindingList.h"

#include <algorithm>

namespace app {
namespace {

// Of a kind.
constexpr std::int64_t kKept = 100;
constexpr std::int64_t kTold = 5;

struct Summary {
    std::string_view kind;
    const char* ofMany;
    const char* ofOne = nullptr;  // One of most kinds needs no summary.
};

constexpr Summary kSummaries[] = {
    {findings::kOutsideSheet, "listings and elements lie off the sheet"},
    {findings::kOutsideFrame, "listings stand out of the frame"},
    {findings::kMissingField, "fields that are printed are not in the listing database"},
    {findings::kEmptyValue, "records have no value in a field that is printed"},
    {findings::kBrokenWord, "words are longer than a line of their column"},
    {findings::kHeadingLeftOut, "headings are left out"},
    {findings::kHeadingAlone, "headings stand alone at the foot of a column group"},
    {findings::kMissingCharacter, "characters are in no installed font"},
    {findings::kMissingFont, "fonts are not installed"},
    {findings::kNoPlace, "listings found no place on a page", "listing found no place on a page"},
};

std::string SummaryOf(std::string_view kind, std::int64_t count) {
    const auto* const summary = std::ranges::find(kSummaries, kind, &Summary::kind);
    return "in all, " + std::to_string(count) + ' ' +
           (count == 1 ? summary->ofOne : summary->ofMany) + '.';
}

}  // namespace

bool FindingList::Count(std::string_view kind) {
    auto known = std::ranges::find(counts_, kind, &KindCount::kind);
    if (known == counts_.end()) known = counts_.insert(known, {std::string(kind)});
    return ++known->count <= kKept;
}

std::int64_t FindingList::Total() const {
    std::int64_t total = 0;
    for (const auto& [kind, count] : counts_) total += count;
    return total;
}

std::vector<std::string> FindingList::Sentences() const {
    std::vector<std::string> sentences;
    for (const auto& [kind, count] : counts_) {
        std::int64_t told = 0;
        for (const Finding& finding : kept_)
            if (finding.kind == kind && told++ < kTold) sentences.push_back(finding.text);
        if (count > kTold || kind == findings::kNoPlace)
            sentences.push_back(SummaryOf(kind, count));
    }
    return sentences;
}

}  // namespace app
