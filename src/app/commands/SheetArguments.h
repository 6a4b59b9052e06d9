#pragma once

#include "app/commands/Commands.h"

namespace CLI {
class App;
}  // namespace CLI

namespace app {

/// Declares how sheets are written, and whether findings keep them from it.
void DeclareSheets(CLI::App& command, Options& options);

/// Declares the maps that the references of a PDF lead to, and a PDF for a press.
void DeclareMapsAndPress(CLI::App& command, Options& options);

}  // namespace app
