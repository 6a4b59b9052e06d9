#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace app {

/// What a program or one of its commands takes. A name "-o,--output" is an option, "DOC" an
/// argument; each is read into the value given, which must outlive the parsing.
class Arguments {
public:
    using Run = std::function<int()>;

    /// Of this command there are only those added to it; one must be given.
    Arguments AddCommand(const char* name, const char* text, Run run = {});

    /// Takes UTF-8, as documents and host objects do.
    Arguments& Text(const char* name, std::string& value, const char* text);
    /// The same for several texts; an option takes one of them each time.
    Arguments& Texts(const char* name, std::vector<std::string>& values, const char* text);
    /// Takes any bytes.
    Arguments& Path(const char* name, std::string& value, const std::string& text);
    Arguments& Number(const char* name, std::int32_t& value, const char* text);
    /// A number from 0.
    Arguments& Count(const char* name, std::int64_t& value, const char* text);
    Arguments& Flag(const char* name, bool& value, const char* text);
    /// What was declared last must be given.
    Arguments& Required();
    /// What the help teaches below the options. Commands added later take it over.
    Arguments& Help(const std::string& text);

private:
    friend class ArgumentParser;
    Arguments(CLI::App& command, Run& chosen) : command_(&command), chosen_(&chosen) {}

    CLI::App* command_;
    CLI::Option* last_ = nullptr;
    Run* chosen_;
};

/// Reads the arguments of a program.
class ArgumentParser {
public:
    ArgumentParser(const char* program, const char* text, const char* version);
    ~ArgumentParser();

    Arguments Program() { return {*cli_, chosen_}; }
    /// The exit status of a program that has nothing left to do: help was asked for and printed, or
    /// usage is wrong, and one sentence on standard error says so.
    std::optional<int> Parse(int argc, const char* const* argv);
    int RunChosen() { return chosen_(); }

private:
    std::unique_ptr<CLI::App> cli_;
    Arguments::Run chosen_;
};

}  // namespace app
