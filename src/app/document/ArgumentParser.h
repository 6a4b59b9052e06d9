#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace app {

/// Adds an argument or option whose value must be UTF-8.
CLI::Option* AddText(CLI::App& command, const char* name, std::string& value, const char* text);
CLI::Option* AddText(CLI::App& command, const char* name, std::optional<std::string>& value,
                     const char* text);
CLI::Option* AddText(CLI::App& command, const char* name, std::vector<std::string>& values,
                     const char* text);

/// Option check: returns an empty text for a whole number from 0, else the fault.
std::string CheckCount(const std::string& text);

/// Parses the arguments of a program. Returns the exit status if the program is to end: after
/// printing help, or after one sentence on standard error about wrong usage.
std::optional<int> Parse(CLI::App& program, int argc, const char* const* argv);

}  // namespace app
