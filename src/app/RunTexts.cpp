#include "app/RunTexts.h"

#include "desk/tables/DbfTable.h"

namespace app {
namespace {

std::string Counted(std::int64_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace

std::string RunSummary(const gazetteer::CVNGazetteerManager& manager) {
    const auto& run = manager.LastRun();
    return Counted(run.records, "record", "records") + ": " +
           Counted(run.listings, "listing", "listings") + ", " +
           Counted(run.duplicates, "duplicate", "duplicates") + " dropped, " +
           Counted(run.combined, "reference", "references") + " combined, " +
           Counted(manager.Working().pageCount, "page", "pages") + ".";
}

std::string StoredSummary(const gazetteer::CVNGazetteerManager& manager) {
    const auto& results = manager.Working();
    if (!results.listings) return {};
    const auto columns = gazetteer::NamesOf(*results.listings);
    if (columns.empty()) return {};
    return Counted(gazetteer::SetUnder(*results.listings, columns.front())->Count(), "listing",
                   "listings") +
           ", " + Counted(results.pageCount, "page", "pages") + '.';
}

std::vector<std::string> RunWarnings(const gazetteer::CVNGazetteerManager& manager) {
    std::vector<std::string> warnings;
    if (const auto dbf = host::As<desk::DbfTable>(manager.DatabaseTable()))
        warnings = dbf->Warnings();
    const auto& run = manager.LastRun();
    const std::int64_t unplaced = run.listings - run.placed;
    if (unplaced == 0) return warnings;
    const bool sample = manager.BoundSettings().samplePage;
    warnings.push_back(Counted(unplaced, "listing", "listings") + " found no place on a page, " +
                       (sample ? "since only a sample page was asked for."
                               : "since the frame is lower than the row of titles."));
    return warnings;
}

std::vector<std::string> FontWarnings(const desk::TextEngine& engine) {
    std::vector<std::string> warnings;
    for (const auto& font : engine.Substitutions())
        warnings.push_back("the font \"" + font.wanted + "\" is not installed; \"" + font.used +
                           "\" stands in for it.");
    return warnings;
}

}  // namespace app
