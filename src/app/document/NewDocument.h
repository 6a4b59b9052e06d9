#pragma once

#include <string>

#include "app/document/OpenDocument.h"
#include "app/document/Options.h"

namespace app {

/// A new document to work on: one layout page with one gazetteer frame, the default columns of
/// the listing database and default properties, then the assignments of the options. Fails for a
/// database that cannot be opened, or that has no field "Page".
void StartNewDocument(OpenDocument& open, const NewDocumentOptions& options,
                      const std::string& documentPath);

/// Sheet sizes by name, or "WxH" in inches. Raises a UsageError for another form.
struct PageSize {
    double width = 0;
    double height = 0;
};
PageSize ParsePageSize(const std::string& text);

/// "LEFT,BOTTOM,WIDTH,HEIGHT" in inches; empty: inside half-inch margins, with room above for a
/// running head and below for a sheet number. Raises a UsageError for another form, or for a frame
/// that is not on the sheet.
FrameOption ParseFrame(const std::string& text, const PageSize& page);

/// What `make` sets beyond the defaults: an index that can be printed as it is. Adds a running head
/// and a sheet number to the document.
void DressForPrint(OpenDocument& open);

}  // namespace app
