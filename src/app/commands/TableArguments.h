#pragma once

#include "app/commands/Commands.h"

namespace CLI {
class App;
}  // namespace CLI

namespace app {

/// Declares the arguments of the commands that make tables of listings.
void DeclareImport(CLI::App& command, Options& options);
void DeclareLocate(CLI::App& command, Options& options);
/// The listing database of `make`, and the options of `locate` for its layers.
void DeclareLocateForMake(CLI::App& command, Options& options);

/// Throws UsageError that names an option of `make` which was given and needs --sheets.
void RefuseWithoutSheets(const CLI::App& command);

/// Sets the sources of features from the parsed command, `locate` or `make`: an option that stands
/// behind a source belongs to it, one that stands before all of them to each. Throws UsageError for
/// a constant that is no FIELD=VALUE.
void TakeFeatures(const CLI::App& command, LocateOptions& options);

}  // namespace app
