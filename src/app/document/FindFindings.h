#pragma once

#include <optional>

#include "app/document/FindingList.h"
#include "app/document/OpenDocument.h"
#include "app/document/SheetSizes.h"
#include "app/document/Sheets.h"

namespace app {

/// Returns what would be wrong on the given pages of the bound gazetteer, or on all: reads the
/// listing database once, and numbers the pages of stored results again. Lengths in sentences have
/// the given unit. Throws if that fails.
FindingList FindFindings(OpenDocument& open, LengthUnit unit,
                         const std::optional<PageRange>& pages = std::nullopt);

/// Adds the fonts that are not installed, and the characters that no font has, of all texts that
/// the engine has set so far.
void AddFonts(const desk::TextEngine& engine, FindingList& list);

/// Adds the fields Page, Row and Column that the listing database lost although a column prints
/// them, and the records whose listing, page, row or column is empty although a column prints it.
void AddTableFindings(OpenDocument& open, FindingList& list);

}  // namespace app
