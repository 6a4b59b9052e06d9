#pragma once

#include <string>
#include <vector>

#include "app/document/OpenDocument.h"
#include "app/document/SheetSizes.h"

namespace app {

struct NewDocumentOptions {
    std::string listingDatabase;
    std::string book;      ///< Map book file; empty for none.
    std::string pageSize;  ///< As for ParsePageSize; empty: the locale's.
    std::string frame;     ///< As for ParseFrame.
    std::vector<std::string> assignments;
    bool sample = false;
    std::string title;              ///< Empty: the table's name.
    std::int32_t firstPage = 0;     ///< Number of the first sheet, from 1; 0: not given.
    std::int32_t columnGroups = 0;  ///< That fill the frame, from 1; 0: as many as fit.
    bool plainRules = false;        ///< Without typesetting.
};

/// Starts a document with one layout page and one gazetteer frame, with the default columns of the
/// listing database and default properties. Ignores options.assignments. Throws for a database that
/// cannot be opened or has no field "Page", and for a map book that cannot be read.
void StartNewDocument(OpenDocument& open, const NewDocumentOptions& options,
                      const std::string& documentPath);

/// Returns the names of the first fields, at most the given number, for a message.
std::string FieldNames(const host::IHostFields& fields, std::int32_t most);

/// Applies the defaults of `make` for a printable index: column groups that fill the frame, fonts
/// and dot leaders; adds a running head and a sheet number. With 0 column groups, as many as fit.
/// With plain rules there is no typesetting.
void ApplyPrintDefaults(OpenDocument& open, std::int32_t columnGroups = 0, bool plainRules = false);

}  // namespace app
