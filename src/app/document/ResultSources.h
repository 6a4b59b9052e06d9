#pragma once

#include <string>

#include "app/document/FindingList.h"
#include "app/document/OpenDocument.h"

/// Which files the stored results of a gazetteer were made from: its listing database and, where it
/// is linked to a map book, the book and its index layers. A text that tells them apart stands
/// beside the gazetteer's properties, in the set "CorvaneProperties".
namespace app {

/// Returns the text stored for an element; empty without one.
std::string StoredSources(const host::Ref<host::IHostElement>& element);
void StoreSources(const host::Ref<host::IHostElement>& element, const std::string& sources);

/// Stores for the chosen gazetteer that its results were made from the present files.
void RecordSources(OpenDocument& open);
/// Returns whether the chosen gazetteer has stored results of other files, or of files that have
/// changed since.
bool SourcesChanged(OpenDocument& open);
/// Makes the next binding of the chosen gazetteer run it if its sources have changed. Returns
/// whether they have.
bool DropOldResults(OpenDocument& open);
/// Adds that the stored results are old.
void AddOldResults(OpenDocument& open, FindingList& list);

}  // namespace app
