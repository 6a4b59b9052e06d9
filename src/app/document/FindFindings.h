#pragma once

#include <optional>

#include "app/document/FindingList.h"
#include "app/document/OpenDocument.h"
#include "app/document/SheetSizes.h"
#include "app/document/Sheets.h"

namespace app {

/// Returns what would be wrong on the given pages of the bound gazetteer, or on all: reads the
/// listing database once, and numbers the pages of stored results again. Lengths in sentences have
/// the given unit. With maps, which may be null, also the references that lead nowhere. Throws if
/// that fails.
FindingList FindFindings(OpenDocument& open, LengthUnit unit,
                         const std::optional<PageRange>& pages = std::nullopt,
                         const MapPages* maps = nullptr);

/// The parts of which FindFindings consists, in their order.
/// @{
/// Adds those of the bound gazetteer.
void AddGazetteerFindings(OpenDocument& open, LengthUnit unit,
                          const std::optional<PageRange>& pages, FindingList& list);
/// Adds the references of the bound gazetteer that lead to no page of the maps.
void AddMapFindings(OpenDocument& open, const MapPages& maps, FindingList& list);
/// Adds the elements that do not lie on the sheet.
void AddElementsOffSheet(OpenDocument& open, FindingList& list);
/// Adds the fonts of all gazetteers and texts of the document that are not installed, and the
/// characters that no font has in these texts and on the given pages of the chosen gazetteer. The
/// gazetteers need not be drawable.
void AddFonts(OpenDocument& open, const std::optional<PageRange>& pages, FindingList& list);
/// @}

/// Returns an element's name, or an empty text.
std::string NameOf(const host::Ref<host::IHostElement>& element);

/// Adds what settings would spoil on every page: tokens that no expression knows, column groups
/// that overlap, and texts that begin at the left of the frame.
void AddSettingsFindings(OpenDocument& open, LengthUnit unit, FindingList& list);

/// Adds the faults of the listing database, the fields Page, Row and Column that the listing
/// database lost although a column prints them, and the records whose listing, page, row or column
/// is empty although a column prints it.
void AddTableFindings(OpenDocument& open, FindingList& list);

}  // namespace app
