#pragma once

#include <string>
#include <vector>

#include "app/document/OpenDocument.h"

namespace app {

/// What a new document is made from.
struct NewDocumentOptions {
    std::string listingDatabase;
    std::string book;                 ///< Map book file; empty for none.
    std::string pageSize = "letter";  ///< As ParsePageSize takes it.
    std::string frame;                ///< As ParseFrame takes it.
    std::vector<std::string> assignments;
    bool sample = false;
};

/// Starts a document with one layout page and one gazetteer frame, with the default columns of the
/// listing database and default properties. The assignments of the options are for the caller.
/// Throws for a database that cannot be opened or has no field "Page", and for a map book that
/// cannot be read.
void StartNewDocument(OpenDocument& open, const NewDocumentOptions& options,
                      const std::string& documentPath);

/// In inches.
struct PageSize {
    double width = 0;
    double height = 0;
};
/// Takes "letter", "a4", or "WIDTHxHEIGHT" in inches, above 0 and at most 200. Throws a UsageError
/// for another form.
PageSize ParsePageSize(const std::string& text);

/// A rectangle on the sheet, in inches from its lower left corner.
struct FrameOption {
    double left = 0;
    double bottom = 0;
    double width = 0;
    double height = 0;
};
/// Takes "LEFT,BOTTOM,WIDTH,HEIGHT" in inches; empty: inside half-inch margins, with room above for
/// a running head and below for a sheet number. Throws a UsageError for another form, or for a
/// frame that is not on the sheet.
FrameOption ParseFrame(const std::string& text, const PageSize& page);

/// Returns the names of the first fields, at most so many, for a sentence.
std::string FieldNames(const host::IHostFields& fields, std::int32_t most);

/// Sets what `make` sets beyond the defaults, for an index that can be printed as it is, and adds a
/// running head and a sheet number to the document.
void DressForPrint(OpenDocument& open);

}  // namespace app
