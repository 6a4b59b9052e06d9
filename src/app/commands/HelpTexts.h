#pragma once

#include <string>
#include <string_view>

namespace app {

/// What `--help` shows below the options: of a command, or of the program by its name "gazetteer".
/// Empty for commands without such a text. That of `set` lists every key that it takes.
std::string HelpText(std::string_view command);

}  // namespace app
