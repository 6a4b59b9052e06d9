#pragma once

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace app {

/// Adds an argument or option that takes UTF-8, as documents and host objects do.
CLI::Option* AddText(CLI::App& command, const char* name, std::string& value, const char* text);
CLI::Option* AddText(CLI::App& command, const char* name, std::vector<std::string>& values,
                     const char* text);

/// For options: returns what is wrong with a text that is no whole number from 0; empty for one.
std::string CheckCount(const std::string& text);

/// Reads the arguments of a program. Returns the exit status where nothing is left to do: help was
/// asked for and printed, or usage is wrong, and one sentence on standard error says so.
std::optional<int> Parse(CLI::App& program, int argc, const char* const* argv);

}  // namespace app
