#pragma once

#include <cstdint>
#include <string>

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

/// Writes the map book file. Throws host::Failure if it cannot.
void WriteBook(const BookPlan& plan);

}  // namespace app
