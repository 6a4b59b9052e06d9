#include "app/document/ArgumentParser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <simdjson.h>
#include <type_traits>

#include "app/document/Errors.h"
#include "app/document/Suggestion.h"
#include "desk/tables/TextDecoder.h"

namespace app {
namespace {

// Returns an empty text for valid UTF-8, else the fault.
std::string CheckText(const std::string& text) {
    if (simdjson::validate_utf8(text)) return "";
    return '"' + desk::PrintableAscii(text) + "\" is not UTF-8";
}

std::vector<std::string> NamesOf(const std::vector<CLI::App*>& commands) {
    std::vector<std::string> names;
    for (const CLI::App* command : commands) names.push_back(command->get_name());
    return names;
}

// Returns a suggestion for the first option that the chosen command does not have.
std::string OptionSuggestion(const CLI::App& program, int argc, const char* const* argv) {
    const CLI::App* command = &program;
    while (!command->get_subcommands().empty()) command = command->get_subcommands().front();
    std::vector<std::string> known;
    for (const CLI::Option* option : command->get_options())
        for (const auto& name : option->get_lnames()) known.push_back("--" + name);
    for (int i = 1; i < argc; ++i) {
        const std::string given = std::string(argv[i]).substr(0, std::string(argv[i]).find('='));
        if (given.starts_with("--") && std::ranges::find(known, given) == known.end())
            return Suggestion(given, known);
    }
    return {};
}

// Returns the fault in the words that should name a command; empty if they do.
std::string CommandFault(CLI::App& program, int argc, const char* const* argv) {
    CLI::App* place = &program;
    for (int i = 1;; ++i) {
        const auto commands = place->get_subcommands([](const CLI::App*) { return true; });
        if (commands.empty()) return {};
        if (i == argc) return "A command is missing; --help lists them.";
        const auto command = std::ranges::find(commands, argv[i], &CLI::App::get_name);
        if (command == commands.end())
            return std::string("There is no command \"") + argv[i] + "\"; --help lists them." +
                   Suggestion(argv[i], NamesOf(commands));
        place = *command;
    }
}

// Returns the fault in the words of this program, without the full stop.
std::string FaultOf(const CLI::ParseError& error, const CLI::App& program) {
    std::string fault = error.what();
    // The name stands first, or behind these words.
    const std::string convert = "Could not convert: ";
    const std::size_t start = fault.starts_with(convert) ? convert.size() : 0;
    const std::string option = fault.substr(start, fault.find_first_of(": ", start) - start);
    if (dynamic_cast<const CLI::ExtrasError*>(&error)) {
        const auto unknown = program.remaining(true);
        std::string names;
        for (const auto& name : unknown) names += (names.empty() ? "\"" : ", \"") + name + '"';
        return unknown.size() == 1 ? "The argument " + names + " is not known"
                                   : "The arguments " + names + " are not known";
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error)) return option + " is missing";
    if (dynamic_cast<const CLI::ConversionError*>(&error)) return option + " takes no value";
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return option + (fault.ends_with("missing") ? " needs a value" : " stands more than once");
    return fault;
}

template <class Number>
CLI::Option* AddNumberOf(CLI::App& command, const std::string& name, auto& value,
                         const NumberRange& range, std::string text) {
    const std::string limits =
        "from " + std::to_string(range.least) + " to " + std::to_string(range.most);
    const char* const kind = std::is_integral_v<Number> ? "a whole number " : "a number ";
    const auto parse = [=, &value](const std::string& given) {
        const char* const end = given.data() + given.size();
        Number number{};
        const auto read = std::from_chars(given.data(), end, number);
        const bool isNumber = read.ec == std::errc() && read.ptr == end;
        if (isNumber && number >= static_cast<Number>(range.least) &&
            number <= static_cast<Number>(range.most)) {
            value = number;
            return;
        }
        throw UsageError(name + ' ' + Shown(given) + ": the value must be " + kind + limits + '.');
    };
    text.replace(text.find("{}"), 2, limits);
    return command.add_option_function<std::string>(name, parse, text)->type_name("NUMBER");
}

}  // namespace

CLI::Option* AddText(CLI::App& command, const char* name, std::string& value, const char* text) {
    return command.add_option(name, value, text)->check(CheckText)->capture_default_str();
}

CLI::Option* AddText(CLI::App& command, const char* name, std::optional<std::string>& value,
                     const char* text) {
    return command.add_option(name, value, text)->check(CheckText);
}

CLI::Option* AddText(CLI::App& command, const char* name, std::vector<std::string>& values,
                     const char* text) {
    return command.add_option(name, values, text)->check(CheckText);
}

CLI::Option* AddNumber(CLI::App& command, const char* name, std::int32_t& value,
                       const NumberRange& range, const char* text) {
    return AddNumberOf<std::int32_t>(command, name, value, range, text);
}

CLI::Option* AddNumber(CLI::App& command, const char* name, std::int64_t& value,
                       const NumberRange& range, const char* text) {
    return AddNumberOf<std::int64_t>(command, name, value, range, text);
}

CLI::Option* AddNumber(CLI::App& command, const char* name, std::optional<std::int64_t>& value,
                       const NumberRange& range, const char* text) {
    return AddNumberOf<std::int64_t>(command, name, value, range, text);
}

CLI::Option* AddNumber(CLI::App& command, const char* name, double& value, const NumberRange& range,
                       const char* text) {
    return AddNumberOf<double>(command, name, value, range, text);
}

std::optional<int> Parse(CLI::App& program, int argc, const char* const* argv) {
    try {
        program.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::Success& help) {
        return program.exit(help);
    } catch (const CLI::ParseError& error) {
        std::string fault = CommandFault(program, argc, argv);
        if (fault.empty())
            fault = FaultOf(error, program) + "; --help tells more." +
                    OptionSuggestion(program, argc, argv);
        std::fprintf(stderr, "%s: %s\n", program.get_name().c_str(), Printable(fault).c_str());
        return kWrongUsage;
    }
}

}  // namespace app
