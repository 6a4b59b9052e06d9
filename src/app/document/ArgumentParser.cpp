#include "app/document/ArgumentParser.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <simdjson.h>

#include "app/document/Errors.h"
#include "desk/tables/TextDecoder.h"

namespace app {
namespace {

// Empty for a whole number that is not negative, else what is wrong.
std::string CheckCount(const std::string& text) {
    const bool whole = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return whole ? "" : '"' + desk::PrintableAscii(text) + "\" is no whole number from 0";
}

// Empty for UTF-8, else what is wrong.
std::string CheckText(const std::string& text) {
    if (simdjson::validate_utf8(text)) return "";
    return '"' + desk::PrintableAscii(text) + "\" is not UTF-8";
}

// What is wrong with the words that should name a command; empty where they name one.
std::string CommandFault(CLI::App& program, int argc, const char* const* argv) {
    CLI::App* place = &program;
    for (int i = 1;; ++i) {
        const auto commands = place->get_subcommands([](const CLI::App*) { return true; });
        if (commands.empty()) return {};
        if (i == argc) return "A command is missing; --help lists them.";
        const auto command = std::ranges::find(commands, argv[i], &CLI::App::get_name);
        if (command == commands.end())
            return std::string("There is no command \"") + argv[i] + "\"; --help lists them.";
        place = *command;
    }
}

}  // namespace

Arguments Arguments::AddCommand(const char* name, const char* text, Run run) {
    command_->require_subcommand(1);
    CLI::App* const command = command_->add_subcommand(name, text);
    if (run) command->callback([chosen = chosen_, run = std::move(run)] { *chosen = run; });
    return {*command, *chosen_};
}

Arguments& Arguments::Text(const char* name, std::string& value, const char* text) {
    last_ = command_->add_option(name, value, text)->check(CheckText)->capture_default_str();
    return *this;
}

Arguments& Arguments::Texts(const char* name, std::vector<std::string>& values, const char* text) {
    last_ = command_->add_option(name, values, text)->check(CheckText);
    if (name[0] == '-') last_->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    return *this;
}

Arguments& Arguments::Path(const char* name, std::string& value, const std::string& text) {
    last_ = command_->add_option(name, value, text);
    return *this;
}

Arguments& Arguments::Number(const char* name, std::int32_t& value, const char* text) {
    last_ = command_->add_option(name, value, text);
    return *this;
}

Arguments& Arguments::Count(const char* name, std::int64_t& value, const char* text) {
    last_ = command_->add_option(name, value, text)->check(CheckCount);
    return *this;
}

Arguments& Arguments::Flag(const char* name, bool& value, const char* text) {
    last_ = command_->add_flag(name, value, text);
    return *this;
}

Arguments& Arguments::Required() {
    last_->required();
    return *this;
}

Arguments& Arguments::Help(const std::string& text) {
    command_->footer(text);
    return *this;
}

ArgumentParser::ArgumentParser(const char* program, const char* text, const char* version)
    : cli_(std::make_unique<CLI::App>(text, program)) {
    cli_->set_version_flag("--version", version);
}

ArgumentParser::~ArgumentParser() = default;

std::optional<int> ArgumentParser::Parse(int argc, const char* const* argv) {
    try {
        cli_->parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::Success& help) {
        return cli_->exit(help);
    } catch (const CLI::ParseError& error) {
        std::string fault = CommandFault(*cli_, argc, argv);
        if (fault.empty()) fault = std::string(error.what()) + "; --help tells more.";
        std::fprintf(stderr, "%s: %s\n", cli_->get_name().c_str(), fault.c_str());
        return kWrongUsage;
    }
}

}  // namespace app
