#pragma once

#include "app/document/OpenDocument.h"

/// Texts on a sheet outside the gazetteer: a running head with the first and last listing of the
/// page, and the sheet number. They are text elements of the layout page, recognised by their tags.
namespace app {

/// Adds a running head above the gazetteer and a sheet number below it.
void AddPageFurniture(OpenDocument& open);

/// Gives the running head and the sheet number the font family of the first column.
void UseColumnFont(OpenDocument& open);

/// Sets the running head and the number, if present, for a page of the gazetteer. Cuts the head
/// with an ellipsis to the width of the gazetteer. Throws if the map book cannot be read.
void LabelSheet(OpenDocument& open, std::int32_t page);

/// Returns the number printed on the sheet of a page. It counts from the document's first number,
/// else in a map book from the first page of the gazetteer's section. Throws if the map book cannot
/// be read.
std::int64_t SheetNumber(OpenDocument& open, std::int32_t page);

}  // namespace app
