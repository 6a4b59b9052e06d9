#pragma once

#include "app/document/OpenDocument.h"

/// What is on a sheet beside the gazetteer: a running head with the first and last listing of the
/// page, and the number of the sheet. Both are text elements of the layout page with tags of their
/// own; the gazetteer does not touch them.
namespace app {

/// Adds a running head above the gazetteer and a sheet number below it.
void AddPageFurniture(OpenDocument& open);

/// Fills the running head and the number, where the document has them, for a page of the gazetteer.
/// The head is cut with an ellipsis to the width of the gazetteer. Throws for a map book that
/// cannot be read.
void LabelSheet(OpenDocument& open, std::int32_t page);

}  // namespace app
