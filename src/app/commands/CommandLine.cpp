#include "app/commands/CommandLine.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <functional>
#include <simdjson.h>

#include "app/commands/Commands.h"
#include "app/commands/ConsoleDialogs.h"
#include "app/commands/HelpTexts.h"
#include "app/work/Errors.h"
#include "desk/tables/TextDecoder.h"
#include "support/ErrorHandling.h"

namespace app {
namespace {

// Empty for a whole number that is not negative, else what is wrong.
std::string CheckCount(const std::string& text) {
    const bool whole = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    return whole ? "" : '"' + desk::PrintableAscii(text) + "\" is no whole number from 0";
}

// Empty for UTF-8, else what is wrong. Documents and host objects take no other texts; paths may
// hold any bytes.
std::string CheckText(const std::string& text) {
    if (simdjson::validate_utf8(text)) return "";
    return '"' + desk::PrintableAscii(text) + "\" is not UTF-8";
}

// Declares the commands and keeps what the arguments said.
class Parser {
public:
    Parser()
        : cli_("Makes the printed index of a map book from a table of listings.", "gazetteer") {
        cli_.require_subcommand(1);
        cli_.set_version_flag("--version", GAZETTEER_VERSION);
        AddMake();
        AddNew();
        AddSet();
        AddColumn();
        AddDocumentCommands();
        AddDraw();
        AddExport();
        AddTable();
        AddComponent();
        // Last, since commands would inherit it.
        cli_.footer(kProgramHelp);
    }

    CLI::App& Cli() { return cli_; }
    int RunChosen() { return run_(); }

private:
    using Command = std::function<int()>;

    CLI::App* Add(CLI::App& parent, const char* name, const char* text, Command run) {
        CLI::App* const command = parent.add_subcommand(name, text);
        command
            ->add_option("--locale", common_.locale,
                         "Locale for sorting and numbers, such as is, de_DE or "
                         "de@collation=phonebook (default: yours)")
            ->check(CheckText);
        command->add_flag("--verbose", common_.verbose, "Show whole call stacks of failures");
        command->callback([this, run = std::move(run)] { run_ = run; });
        return command;
    }

    static void Repeatable(CLI::Option* option) {
        option->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }

    static void AddNewDocumentOptions(CLI::App& command, NewDocumentOptions& options) {
        command.add_option("--book", options.book, "Map book file that the document belongs to");
        command.add_option("--page-size", options.pageSize, "letter, a4 or WIDTHxHEIGHT in inches")
            ->check(CheckText)
            ->capture_default_str();
        command
            .add_option("--frame", options.frame,
                        "LEFT,BOTTOM,WIDTH,HEIGHT of the gazetteer on the sheet, in inches")
            ->check(CheckText);
        Repeatable(command
                       .add_option("--set", options.assignments,
                                   "KEY=VALUE, as for the command set (repeatable)")
                       ->check(CheckText));
        command.add_flag("--sample", options.sample, "Generate a sample page only");
    }

    CLI::App* AddDocument(CLI::App* command, std::string& document) {
        command->add_option("DOC", document, "The document, a file that new or make has written")
            ->required();
        return command;
    }

    void AddMake() {
        auto* command = Add(cli_, "make", "Make an index in one step, ready to print",
                            [this] { return Make(common_, make_); });
        command->add_option("LISTINGS", make_.listingDatabase, "Listing database, a dBase table")
            ->required();
        command->add_option("-o,--output", make_.output, "File to write: .pdf, .png or .svg")
            ->required();
        command->add_option("--document", make_.document, "Keep the document under this name");
        AddNewDocumentOptions(*command, make_);
        command->footer(kMakeHelp);
    }

    void AddNew() {
        auto* command = Add(cli_, "new", "Make a new document with the default columns",
                            [this] { return New(common_, new_); });
        command->add_option("DOC", new_.document, "The document to write")->required();
        command
            ->add_option("--listing-database", new_.listingDatabase,
                         "Listing database, a dBase table")
            ->required();
        command->add_flag("--force", new_.force, "Replace a document that exists");
        AddNewDocumentOptions(*command, new_);
        command->footer(kNewHelp);
    }

    void AddSet() {
        auto* command = Add(cli_, "set", "Change properties, as on the property page",
                            [this] { return Set(common_, set_); });
        AddDocument(command, set_.document);
        command->add_option("KEY=VALUE", set_.assignments, "What to change")
            ->required()
            ->check(CheckText);
        command->footer(SetHelp());
    }

    void AddColumn() {
        auto* command = cli_.add_subcommand("column", "Add, remove or list columns");
        command->require_subcommand(1);
        command->footer(kColumnHelp);
        auto* add = AddDocument(
            Add(*command, "add", "Add a column", [this] { return ColumnAdd(common_, column_); }),
            column_.document);
        add->add_option("NAME", column_.name, "Name of the column")->required()->check(CheckText);
        add->add_option("KEY=VALUE", column_.assignments, "Properties of the column")
            ->check(CheckText);
        auto* remove = AddDocument(Add(*command, "remove", "Remove a column",
                                       [this] { return ColumnRemove(common_, column_); }),
                                   column_.document);
        remove->add_option("NAME", column_.name, "Name of the column")
            ->required()
            ->check(CheckText);
        auto* list = AddDocument(Add(*command, "list", "List the columns with their properties",
                                     [this] { return ColumnList(common_, column_); }),
                                 column_.document);
        list->add_flag("--json", column_.json, "As JSON");
    }

    void AddDocumentCommands() {
        const auto add = [this](const char* name, const char* text,
                                int (*run)(const CommonOptions&, const DocumentOptions&)) {
            return AddDocument(
                Add(cli_, name, text, [this, run] { return run(common_, document_); }),
                document_.document);
        };
        add("check", "Say whether the gazetteer can be drawn, and if not, why", Check)
            ->footer(kCheckHelp)
            ->add_flag("--json", document_.json, "As JSON");
        add("generate", "Reload the stored results, or run and store them", Generate)
            ->footer(kGenerateHelp);
        add("show", "Show page count, default page and the name of each page", Show)
            ->footer(kShowHelp)
            ->add_flag("--json", document_.json, "As JSON, with all listings");
        add("draft", "Take the drawn page away and set the draft state", Draft)->footer(kDraftHelp);
    }

    void AddDraw() {
        auto* command = Add(cli_, "draw", "Draw one page into the gazetteer's frame",
                            [this] { return Draw(common_, draw_); });
        AddDocument(command, draw_.document);
        command->add_option("--page", draw_.page, "Page to draw, from 1")->required();
        command->add_flag("--json", draw_.json, "Print the element tree; the document stays");
        command->add_option("-o,--output", draw_.output,
                            "Write the sheet to a .pdf, .png or .svg file; the document stays");
        command->footer(kDrawHelp);
    }

    void AddExport() {
        auto* command = Add(cli_, "export", "Write pages as sheets",
                            [this] { return Export(common_, export_); });
        AddDocument(command, export_.document);
        command->add_option("-o,--output", export_.output, "File to write: .pdf, .png or .svg")
            ->required();
        command->add_option("--pages", export_.pages, "Pages such as 2-5 or 3 (default: all)")
            ->check(CheckText);
        command->footer(kExportHelp);
    }

    void AddTable() {
        auto* command = Add(cli_, "table", "Show how a dBase table is read",
                            [this] { return Table(common_, table_); });
        command->add_option("FILE", table_.file, "The table")->required();
        command->add_flag("--json", table_.json, "As JSON");
        command->add_option("--limit", table_.limit, "Show at most this many rows")
            ->check(CheckCount);
        command->footer(kTableHelp);
    }

    void AddComponent() {
        auto* command = cli_.add_subcommand("component", "Enter the property page with the desk");
        command->require_subcommand(1);
        command->footer(kComponentHelp);
        Add(*command, "install", "Enter it", [this] { return Component(common_, true); });
        Add(*command, "uninstall", "Take it out", [this] { return Component(common_, false); });
    }

    CLI::App cli_;
    Command run_;
    CommonOptions common_;
    MakeOptions make_;
    NewOptions new_;
    SetOptions set_;
    ColumnOptions column_;
    DocumentOptions document_;
    DrawOptions draw_;
    ExportOptions export_;
    TableOptions table_;
};

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

int Refuse(CLI::App& program, const CLI::ParseError& error, int argc, const char* const* argv) {
    const std::string fault = CommandFault(program, argc, argv);
    Tell(fault.empty() ? std::string(error.what()) + "; --help tells more." : fault);
    return kWrongUsage;
}

// Results count only once they have left the program.
int CheckResultsWritten(int exitStatus) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return exitStatus;
    throw CommandError(std::string("The results cannot be written: ") + std::strerror(errno) + ".");
}

}  // namespace

int Run(int argc, const char* const* argv) {
    Parser parser;
    try {
        parser.Cli().parse(argc, argv);
        return CheckResultsWritten(parser.RunChosen());
    } catch (const CLI::Success& help) {
        return parser.Cli().exit(help);
    } catch (const CLI::ParseError& error) {
        return Refuse(parser.Cli(), error, argc, argv);
    } catch (const AlreadyTold& told) {
        return told.exitStatus;
    } catch (const UsageError& error) {
        Tell(error.what());
        return kWrongUsage;
    } catch (const host::Failure& failure) {
        Tell(FailureSentence(failure));
        return kCouldNot;
    } catch (const std::exception&) {
        Tell(gazetteer::CurrentFailure().cause);
        return kCouldNot;
    }
}

}  // namespace app
