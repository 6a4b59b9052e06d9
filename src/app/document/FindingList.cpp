#include "app/document/FindingList.h"

#include <algorithm>
#include <utility>

#include "model/PageFindings.h"

namespace app {
namespace {

/// Sentences told of a kind.
constexpr std::int64_t kTold = 5;

struct Summary {
    std::string_view kind;
    const char* ofMany;
    const char* ofOne = nullptr;  // One of most kinds needs no summary.
};

constexpr Summary kSummaries[] = {
    {findings::kOutsideSheet, "listings lie off the sheet"},
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

FindingList::KindCount& FindingList::CountOf(std::string_view kind) {
    const auto known = std::ranges::find(counts_, kind, &KindCount::kind);
    return known != counts_.end() ? *known : counts_.emplace_back(KindCount{std::string(kind)});
}

void FindingList::Add(Finding finding) {
    if (++CountOf(finding.kind).count <= gazetteer::PageFindings::kKeptOfAKind)
        kept_.push_back(std::move(finding));
}

void FindingList::Count(std::string_view kind, std::int64_t more) {
    if (more > 0) CountOf(kind).count += more;
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
