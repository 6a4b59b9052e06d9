#pragma once

#include <cstdint>
#include <string>

#include "app/commands/CommandSession.h"
#include "app/document/NewDocument.h"

namespace app {

/// What the commands take, with its defaults. CommandLine.cpp declares which command takes what.
struct Options : CommonOptions, NewDocumentOptions {
    std::string document;
    std::string table;
    std::string column;
    std::string output;
    std::string pages;        ///< As ParsePages takes them.
    std::int32_t page = 0;    ///< From 1.
    std::int64_t limit = -1;  ///< Rows shown; negative: all.
    bool json = false;
    bool force = false;
};

/// Each command returns the exit status, and throws what keeps it from being done.
using Command = int(const Options& options);
Command Make, New, Set, ColumnAdd, ColumnRemove, ColumnList;
Command Check, Generate, Show, Draft, Draw, Export, Table;
Command InstallComponent, UninstallComponent;

/// Runs the command that the arguments name. Returns the exit status: 0 done, 1 it could not be
/// done, 2 wrong usage; in the last two cases standard error has one sentence about it.
int Run(int argc, const char* const* argv);

}  // namespace app
