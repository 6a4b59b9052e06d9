#include "app/document/RunTexts.h"

#include <array>
#include <cstdio>

#include "gis/module/SourceTable.h"

namespace app {
namespace {

constexpr char kUndrawable[] = "The gazetteer cannot be drawn";

std::string Counted(std::int64_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace

std::int64_t ListingCount(const gazetteer::CVNGazetteerManager& manager) {
    const auto& listings = manager.Working().listings;
    if (!listings) return 0;
    const auto columns = gazetteer::NamesOf(*listings, 1);
    return columns.empty() ? 0 : gazetteer::SetUnder(*listings, columns.front())->Count();
}

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
    if (!results.listings || results.listings->Count() == 0) return {};
    return Counted(ListingCount(manager), "listing", "listings") + ", " +
           Counted(results.pageCount, "page", "pages") + '.';
}

std::vector<std::string> TableFaults(const gazetteer::CVNGazetteerManager& manager) {
    const auto table = host::As<gis::SourceTable>(manager.DatabaseTable());
    return table ? table->Notes().Faults() : std::vector<std::string>();
}

std::vector<std::string> TableRemarks(const gazetteer::CVNGazetteerManager& manager) {
    const auto table = host::As<gis::SourceTable>(manager.DatabaseTable());
    return table ? table->Notes().Remarks() : std::vector<std::string>();
}

std::string NoPlaceReason(const gazetteer::CVNGazetteerManager& manager) {
    if (manager.BoundSettings().samplePage) return "since only a sample page was asked for.";
    return manager.Working().pageCount == 0 ? "since the frame is lower than the row of titles."
                                            : "since no page of the stored results holds it.";
}

std::string UndrawableSentence(const gazetteer::Findings& reasons) {
    std::string sentence = std::string(kUndrawable) + '.';
    for (const auto& reason : reasons) sentence += ' ' + reason;
    return sentence;
}

std::string UndrawableLines(const gazetteer::Findings& reasons) {
    std::string lines = std::string(kUndrawable) + ':';
    for (const auto& reason : reasons) lines += "\n  " + reason;
    return lines;
}

std::string NoPageReason(const gazetteer::CVNGazetteerManager& manager) {
    return ListingCount(manager) == 0
               ? "The gazetteer has no page: the texts of all its records are empty."
               : "The gazetteer has no page: its frame is lower than the row of titles.";
}

std::string CodePoint(char32_t character) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(character));
    return text.data();
}

std::string FontWarning(const desk::FontSubstitution& font, const std::string& place) {
    return "the font \"" + font.wanted + "\" is not installed; \"" + font.used +
           "\" stands in for it" + (place.empty() ? "." : " in " + place + '.');
}

}  // namespace app
