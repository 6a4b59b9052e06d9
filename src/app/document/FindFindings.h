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

/// Adds the fonts that are not installed, and the characters that no font has, of the texts that
/// were measured so far, with the first place of each. Leaves out those of other pages.
void AddFonts(OpenDocument& open, const PageRange& pages, FindingList& list);

/// Returns the text of a listing's first column, without what is resolved at drawing.
std::string ListingOf(OpenDocument& open, const std::string& rowKey);

/// Returns an element's name, or an empty text.
std::string NameOf(const host::Ref<host::IHostElement>& element);

/// Adds the fields Page, Row and Column that the listing database lost although a column prints
/// them, and the records whose listing, page, row or column is empty although a column prints it.
void AddTableFindings(OpenDocument& open, FindingList& list);

}  // namespace app
