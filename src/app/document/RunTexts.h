#pragma once

#include <string>
#include <vector>

#include "desk/text/TextEngine.h"
#include "manager/CVNGazetteerManager.h"

/// Sentences about a run and its outcome.
namespace app {

/// Counts of records, listings, duplicates, references and pages of a run, in one line.
std::string RunSummary(const gazetteer::CVNGazetteerManager& manager);

/// Counts of listings and pages of stored results, in one line; empty where there are none.
std::string StoredSummary(const gazetteer::CVNGazetteerManager& manager);

/// Warnings about the table and about the outcome, one sentence each.
std::vector<std::string> RunWarnings(const gazetteer::CVNGazetteerManager& manager);

/// That the gazetteer cannot be drawn, with the reasons that the manager found, in one line.
std::string UndrawableSentence(const gazetteer::CVNGazetteerManager& manager);
/// The same with each reason on a line of its own.
std::string UndrawableLines(const gazetteer::Findings& reasons);

/// Why there is no page where the gazetteer can be drawn and has none.
std::string NoPageReason(const gazetteer::CVNGazetteerManager& manager);

/// Which fonts have been replaced by others so far, one sentence each.
std::vector<std::string> FontWarnings(const desk::TextEngine& engine);

/// Which characters were printed as boxes since no font has them, in one sentence; empty if none.
std::string MissingCharactersWarning(const desk::TextEngine& engine);

}  // namespace app
