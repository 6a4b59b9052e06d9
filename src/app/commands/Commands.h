#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/commands/CommandSession.h"
#include "app/document/NewDocument.h"
#include "app/document/PressOutput.h"
#include "app/document/Sheets.h"
#include "app/tables/TableOptions.h"

namespace app {

/// Options of all commands with their defaults. CommandLine.cpp declares which command has which.
struct Options : CommonOptions, NewDocumentOptions {
    std::string document;
    std::string table;
    std::string column;
    std::string output;
    std::string pages;                   ///< As for ParsePages.
    std::int32_t page = 0;               ///< From 1.
    std::optional<std::string> head;     ///< Text of the running head; empty: none.
    std::string headFont;                ///< As a text symbol of `set`; empty: not given.
    std::string sheetNumber;             ///< "true" or "false"; empty: not given.
    std::string numberFont;              ///< As headFont.
    std::string sheets;                  ///< Table with a record for each map sheet.
    std::int64_t startPage = 1;          ///< Page of the book on which the first map stands.
    std::string rowLabels = "A..H";      ///< Of the grid: "A..H", "1..10" or with commas.
    std::string columnLabels = "1..10";  ///< The same.
    std::string listings;  ///< Table that make keeps of what it has located; empty: none.
    ImportOptions imported;
    LocateOptions located;
    SheetOutput written;
    MapFile maps;
    PressOptions press;
    std::int64_t limit = -1;  ///< Maximum number of rows shown; negative: all.
    bool json = false;
    bool force = false;
    bool strict = false;
};

/// A command returns the exit status and throws on failure.
using Command = int(const Options& options);
Command Make, New, Set, ColumnAdd, ColumnRemove, ColumnList;
Command Check, Generate, Show, Draft, Draw, Export, Table;
Command InstallComponent, UninstallComponent, BookNew, Import, Locate;

/// Parses the arguments and runs the command. Returns the exit status: 0 success, 1 failure, 2
/// wrong usage. For 1 and 2 it has written one sentence to standard error.
int Run(int argc, const char* const* argv);

}  // namespace app
