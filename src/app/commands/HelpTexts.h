#pragma once

#include <string>
#include <string_view>

namespace app {

/// Returns what `--help` shows below the options of a command, or of the program for "gazetteer".
/// Empty for commands without such a text. The text of `set` lists all keys that it accepts.
std::string HelpText(std::string_view command);

}  // namespace app
