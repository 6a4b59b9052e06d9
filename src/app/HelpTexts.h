#pragma once

/// What `--help` teaches beyond the options themselves.
namespace app {

extern const char kProgramHelp[];
extern const char kMakeHelp[];
extern const char kKeysHelp[];
extern const char kColumnHelp[];
extern const char kExportHelp[];

}  // namespace app
