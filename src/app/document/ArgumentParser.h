#pragma once

#include <cstdint>
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

/// The values that an option takes, both included.
struct NumberRange {
    std::int64_t least = 0;
    std::int64_t most = 0;
};

/// Adds an option whose value must be a number, or a whole one, of the range; parsing throws
/// UsageError for others. The range stands in the help where the text has braces: {}.
CLI::Option* AddNumber(CLI::App& command, const char* name, std::int32_t& value,
                       const NumberRange& range, const char* text);
CLI::Option* AddNumber(CLI::App& command, const char* name, std::int64_t& value,
                       const NumberRange& range, const char* text);
CLI::Option* AddNumber(CLI::App& command, const char* name, std::optional<std::int64_t>& value,
                       const NumberRange& range, const char* text);
CLI::Option* AddNumber(CLI::App& command, const char* name, double& value, const NumberRange& range,
                       const char* text);

/// Parses the arguments of a program. Returns the exit status if the program is to end: after
/// printing help, or after one sentence on standard error about wrong usage. Throws UsageError for
/// a number out of its range.
std::optional<int> Parse(CLI::App& program, int argc, const char* const* argv);

}  // namespace app
