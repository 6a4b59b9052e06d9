#include "app/document/FindingList.h"

#include <algorithm>

namespace app {
namespace {

// Of a kind.
constexpr std::int64_t kKept = 100;
constexpr std::size_t kTold = 5;

struct KindTexts {
    std::string_view kind;
    const char* title;
    const char* ofMany;
    const char* ofOne = nullptr;  // One of most kinds needs no summary.
};

constexpr KindTexts kTexts[] = {
    {findings::kOutsideSheet, "Off the sheet", "listings and elements lie off the sheet"},
    {findings::kOutsideFrame, "Out of the frame", "listings stand out of the frame"},
    {findings::kMissingField, "Missing fields",
     "fields that are printed are not in the listing database"},
    {findings::kEmptyValue, "Empty values", "records have no value in a field that is printed"},
    {findings::kBrokenWord, "Broken words", "words are longer than a line of their column"},
    {findings::kHeadingLeftOut, "Headings left out", "headings are left out"},
    {findings::kHeadingAlone, "Headings alone at the foot",
     "headings stand alone at the foot of a column group"},
    {findings::kMissingCharacter, "Characters in no font", "characters are in no installed font"},
    {findings::kMissingFont, "Fonts that are not installed", "fonts are not installed"},
    {findings::kNoPlace, "Listings on no page", "listings found no place on a page",
     "listing found no place on a page"},
    {findings::kOutsideGrid, "Outside the grid", "records have a square outside the grid"},
    {findings::kOldResults, "Old results", "gazetteers have old results"},
    {findings::kTableFault, "Faults of the listing database", "faults are in the listing database"},
    {findings::kUnknownToken, "Unknown tokens", "tokens are unknown"},
    {findings::kOverlap, "Overlapping columns", "settings make columns overlap"},
    {findings::kNoTarget, "References without a map page", "references lead to no map page"},
    {findings::kUndrawable, "Reasons why the gazetteer cannot be drawn", "reasons"},
};

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

std::vector<FindingList::Kind> FindingList::Kinds() const {
    std::vector<Kind> kinds;
    for (const auto& [name, count] : counts_) {
        const auto& texts = *std::ranges::find(kTexts, name, &KindTexts::kind);
        Kind kind{texts.title, count};
        for (const Finding& finding : kept_)
            if (finding.kind == name)
                (kind.told.size() < kTold ? kind.told : kind.more).push_back(&finding);
        if (count > static_cast<std::int64_t>(kTold) || name == findings::kNoPlace)
            kind.summary = "in all, " + std::to_string(count) + ' ' +
                           (count == 1 ? texts.ofOne : texts.ofMany) + '.';
        kinds.push_back(std::move(kind));
    }
    return kinds;
}

std::vector<std::string> FindingList::Sentences() const {
    std::vector<std::string> sentences;
    for (const Kind& kind : Kinds()) {
        for (const Finding* const finding : kind.told) sentences.push_back(finding->text);
        if (!kind.summary.empty()) sentences.push_back(kind.summary);
    }
    return sentences;
}

}  // namespace app
