#pragma once

#include <string>

/// What `--help` teaches beyond the options themselves.
namespace app {

extern const char kProgramHelp[];
extern const char kMakeHelp[];
extern const char kNewHelp[];
extern const char kColumnHelp[];
extern const char kCheckHelp[];
extern const char kGenerateHelp[];
extern const char kShowHelp[];
extern const char kDraftHelp[];
extern const char kDrawHelp[];
extern const char kExportHelp[];
extern const char kTableHelp[];
extern const char kComponentHelp[];

/// Of `set`: how keys and values are written, and every key that it takes.
std::string SetHelp();

}  // namespace app
