#include <filesystem>

#include "app/commands/Commands.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/tables/BookFile.h"
#include "desk/tables/TablePath.h"

namespace app {

int BookNew(const Options& options) {
    if (IsOfTable(options.book, desk::FindTable(options.sheets).File()))
        throw UsageError("The file \"" + options.book +
                         "\" cannot be written: the map book is made from it.");
    std::error_code ignored;
    if (!options.force && std::filesystem::exists(options.book, ignored))
        throw CommandError("The map book file \"" + options.book +
                           "\" exists already; --force replaces it.");
    const std::int64_t sheets = desk::OpenTable(desk::FindTable(options.sheets))->LiveRecords();
    if (sheets == 0)
        throw CommandError("The table of map sheets \"" + options.sheets + "\" has no records.");
    WriteBook({options.book, options.sheets, sheets, options.startPage,
               ParseLabels("--row-labels", options.rowLabels),
               ParseLabels("--column-labels", options.columnLabels)});
    return kDone;
}

}  // namespace app
