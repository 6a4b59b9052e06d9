#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desk/text/TextEngine.h"
#include "manager/CVNGazetteerManager.h"

namespace app {

/// Returns the counts of records, listings, duplicates, references and pages of a run, in one line.
std::string RunSummary(const gazetteer::CVNGazetteerManager& manager);

/// Returns the number of listings of stored results.
std::int64_t ListingCount(const gazetteer::CVNGazetteerManager& manager);
/// Returns the counts of listings and pages of stored results, in one line; empty without results.
std::string StoredSummary(const gazetteer::CVNGazetteerManager& manager);

/// Returns what is wrong with the file of the listing database, one sentence each.
std::vector<std::string> TableFaults(const gazetteer::CVNGazetteerManager& manager);
/// Returns what else is to be said of it, such as fields that are not read.
std::vector<std::string> TableRemarks(const gazetteer::CVNGazetteerManager& manager);

/// Returns the end of a sentence that says why listings found no place.
std::string NoPlaceReason(const gazetteer::CVNGazetteerManager& manager);

/// Returns one line that says that the gazetteer cannot be drawn, with the reasons.
std::string UndrawableSentence(const gazetteer::Findings& reasons);
/// The same with one line per reason.
std::string UndrawableLines(const gazetteer::Findings& reasons);

/// Returns the reason why a drawable gazetteer has no pages.
std::string NoPageReason(const gazetteer::CVNGazetteerManager& manager);

/// Returns a sentence about a font that is not installed, with the place that is printed in it.
std::string FontWarning(const desk::FontSubstitution& font, const std::string& place = {});

/// Returns a character's number, such as "U+00E9".
std::string CodePoint(char32_t character);

}  // namespace app
