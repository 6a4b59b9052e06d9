#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/tables/Labels.h"

namespace app {

/// A map book of a section of maps, one page for each sheet, and a section for the index behind it.
struct BookPlan {
    std::string book;    ///< The file.
    std::string sheets;  ///< Table with a record for each sheet, in page order.
    std::int64_t sheetCount = 0;
    std::int64_t startPage = 1;  ///< Of the first sheet.
    Labels rows;                 ///< Of the grid.
    Labels columns;
};

/// Throws UsageError if the file would overwrite a source or the table of listings, and
/// CommandError if it exists already and force is not given. Does nothing for an empty path.
void CheckBookOutput(const std::string& book, const std::string& table,
                     const std::vector<std::string>& sources, bool force);

/// Writes the map book file. Throws host::Failure if it cannot.
void WriteBook(const BookPlan& plan);

/// Returns the settings, KEY=VALUE, of a gazetteer whose table has the numbers of sheets, rows and
/// columns, so that a book written by WriteBook tells its pages and labels.
std::vector<std::string> LinkToWrittenBook();

}  // namespace app
