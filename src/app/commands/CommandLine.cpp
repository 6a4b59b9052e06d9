#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/SheetArguments.h"
#include "app/commands/TableArguments.h"
#include "app/document/ArgumentParser.h"
#include "app/document/ColumnGroups.h"
#include "app/document/Errors.h"
#include "app/document/Suggestion.h"
#include "desk/documents/Document.h"
#include "desk/drawing/PageWriter.h"
#include "desk/locale/IcuLocale.h"
#include "desk/locale/LocaleNames.h"
#include "support/ErrorHandling.h"

namespace app {
namespace {

constexpr std::int64_t kMostPages = 1'000'000;
constexpr std::int64_t kMostRows = 1'000'000'000;  // More than any table that is printed has.

std::string CheckTitle(const std::string& title) {
    if (title.find_first_not_of(' ') != std::string::npos) return {};
    throw UsageError("--title: the title must have a character that is no blank.");
}

// Throws with the nearest locale for a name that is unknown.
void CheckLocale(const std::string& name) try {
    const desk::IcuLocale locale(name);
} catch (const host::Failure& failure) {
    std::vector<std::string> texts;
    const auto names = desk::LocaleNames();
    for (const auto& known : names) texts.push_back(known.text);
    const std::string nearest = Nearest(name, texts);
    if (nearest.empty()) throw CommandError(failure.cause);
    throw CommandError(failure.cause + " Did you mean \"" +
                       std::ranges::find(names, nearest, &desk::LocaleName::text)->locale + "\"?");
}

// Declares the commands with their arguments and keeps the chosen one.
class Commands {
public:
    Commands();

    CLI::App& Program() { return program_; }
    int RunChosen() const {
        if (!options_.locale.empty()) CheckLocale(options_.locale);
        return chosen_(options_);
    }

private:
    CLI::App& AddParent(CLI::App& parent, const char* name, const char* text);
    CLI::App& Add(CLI::App& parent, const char* name, const char* text, Command* run);
    CLI::App& AddForDocument(CLI::App& parent, const char* name, const char* text, Command* run);
    void AddNewDocumentOptions(CLI::App& command);
    void AddSheetOptions(CLI::App& command);
    void AddMake();
    void AddEditing();
    void AddColumn();
    void AddResults();
    void AddPages();
    void AddOthers();

    CLI::App program_{"Makes the printed index of a map book from a table of listings.",
                      "gazetteer"};
    Options options_;
    Command* chosen_ = nullptr;
};

Commands::Commands() {
    program_.set_version_flag("--version", GAZETTEER_VERSION);
    program_.require_subcommand(1);
    AddMake();
    AddEditing();
    AddColumn();
    AddResults();
    AddPages();
    AddOthers();
    // Last, because commands without a text inherit that of their parent.
    program_.footer(HelpText("gazetteer"));
}

CLI::App& Commands::AddParent(CLI::App& parent, const char* name, const char* text) {
    auto& command = *parent.add_subcommand(name, text);
    const bool isFirst = &parent == &program_;
    const std::string help = HelpText(isFirst ? name : parent.get_name() + ' ' + name);
    if (!help.empty()) command.footer(help);
    return command;
}

CLI::App& Commands::Add(CLI::App& parent, const char* name, const char* text, Command* run) {
    auto& command = AddParent(parent, name, text);
    command.callback([this, run] { chosen_ = run; });
    AddText(command, "--locale", options_.locale,
            "Locale for sorting and numbers, such as is, de_DE or de@collation=phonebook "
            "(default: that of the document, or yours)");
    command.add_flag("--verbose", options_.verbose, "Show whole call stacks of failures");
    return command;
}

CLI::App& Commands::AddForDocument(CLI::App& parent, const char* name, const char* text,
                                   Command* run) {
    auto& command = Add(parent, name, text, run);
    command
        .add_option("DOC", options_.document, "The document, a file that new or make has written")
        ->required();
    return command;
}

void Commands::AddNewDocumentOptions(CLI::App& command) {
    command.add_option("--book", options_.book, "Map book file that the document belongs to");
    AddText(command, "--set", options_.assignments,
            "KEY=VALUE, as for the command set (repeatable)")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    AddSheetOptions(command);
    command.add_flag("--sample", options_.sample, "Generate a sample page only");
}

void Commands::AddSheetOptions(CLI::App& command) {
    AddText(
        command, "--page-size", options_.pageSize,
        "a3, a4, a5, b5, letter, legal, tabloid, or WIDTHxHEIGHT in inches or with mm behind it "
        "(default: letter or a4, by the locale)");
    AddText(command, "--frame", options_.frame,
            "LEFT,BOTTOM,WIDTH,HEIGHT of the gazetteer on the sheet, in inches");
    AddText(command, "--title", options_.title, "Title of the document (default: the table's name)")
        ->check(CheckTitle);
    AddNumber(command, "--first-page", options_.firstPage, {1, desk::kLargestFirstSheet},
              "Number printed on the first sheet, {} (default: by the map book, or 1)");
    AddText(command, "--head", options_.head,
            "Running head, with $$FIRST and $$LAST for the listings of the page; empty: none");
    AddText(command, "--head-font", options_.headFont,
            "Its font, FAMILY,SIZE[,bold][,italic][,COLOUR] (default: the family of the index)");
    command
        .add_option("--sheet-number", options_.sheetNumber, "Whether the sheets carry their number")
        ->check(CLI::IsMember({"true", "false"}));
    AddText(command, "--number-font", options_.numberFont,
            "Font of the sheet number, as for --head-font");
}

void Commands::AddMake() {
    auto& make = Add(program_, "make", "Make an index in one step, ready to print", Make);
    DeclareLocateForMake(make, options_);
    make.callback([this, &make] {
        if (options_.located.sheets.empty()) RefuseWithoutSheets(make);
        TakeFeatures(make, options_.located);
        chosen_ = Make;
    });
    make.add_option("-o,--output", options_.output, "File to write: " + desk::PageEndings())
        ->required();
    make.add_option("--document", options_.document,
                    "Keep the document under this name, also in place of another document");
    AddNewDocumentOptions(make);
    AddNumber(make, "--columns", options_.columnGroups, {1, kMostColumnGroups},
              "Number of column groups on a page, {} (default: as many as fit)");
    make.add_flag("--plain-rules", options_.plainRules,
                  "Without the settings of typesetting that make begins with");
    DeclareSheets(make, options_);
    DeclareMapsAndPress(make, options_);
}

void Commands::AddEditing() {
    auto& create = Add(program_, "new", "Make a new document with the default columns", New);
    create.add_option("DOC", options_.document, "The document to write")->required();
    create.add_option("--listing-database", options_.listingDatabase, "Listing database, a table")
        ->required();
    create.add_flag("--force", options_.force, "Replace a document that exists");
    AddNewDocumentOptions(create);

    auto& set = AddForDocument(program_, "set", "Change properties, as on the property page", Set);
    AddText(set, "ASSIGNMENTS", options_.assignments, "What to change: KEY=VALUE");
    AddSheetOptions(set);
}

void Commands::AddColumn() {
    auto& column = AddParent(program_, "column", "Add, remove or list columns");
    column.require_subcommand(1);
    auto& add = AddForDocument(column, "add", "Add a column", ColumnAdd);
    AddText(add, "NAME", options_.column, "Name of the column")->required();
    AddText(add, "ASSIGNMENTS", options_.assignments, "Properties of the column: KEY=VALUE");
    auto& remove = AddForDocument(column, "remove", "Remove a column", ColumnRemove);
    AddText(remove, "NAME", options_.column, "Name of the column")->required();
    AddForDocument(column, "list", "List the columns with their properties", ColumnList)
        .add_flag("--json", options_.json, "As JSON");
}

void Commands::AddResults() {
    AddForDocument(program_, "check", "Say whether the gazetteer can be drawn, and if not, why",
                   Check)
        .add_flag("--json", options_.json, "As JSON");
    AddForDocument(program_, "generate", "Reload the stored results, or run and store them",
                   Generate);
    AddForDocument(program_, "show", "Show page count, default page and the name of each page",
                   Show)
        .add_flag("--json", options_.json, "As JSON, with all listings");
}

void Commands::AddPages() {
    AddForDocument(program_, "draft", "Take the drawn page away and set the draft state", Draft);

    auto& draw = AddForDocument(program_, "draw", "Draw one page into the gazetteer's frame", Draw);
    AddNumber(draw, "--page", options_.page, {1, kMostPages}, "Page to draw, {}")->required();
    draw.add_flag("--json", options_.json, "Print the element tree; the document stays");
    draw.add_option("-o,--output", options_.output,
                    "Write the sheet to a " + desk::PageEndings() + " file; the document stays");
    DeclareSheets(draw, options_);

    auto& output = AddForDocument(program_, "export", "Write pages as sheets", Export);
    output.add_option("-o,--output", options_.output, "File to write: " + desk::PageEndings())
        ->required();
    AddText(output, "--pages", options_.pages, "Pages such as 2-5 or 3 (default: all)");
    DeclareSheets(output, options_);
    DeclareMapsAndPress(output, options_);
}

void Commands::AddOthers() {
    auto& table = Add(program_, "table", "Show how a table is read", Table);
    table.add_option("FILE", options_.table, "The table")->required();
    table.add_flag("--json", options_.json, "As JSON");
    AddNumber(table, "--limit", options_.limit, {0, kMostRows}, "Show at most this many rows, {}");

    DeclareImport(Add(program_, "import", "Make a table of listings from any other table", Import),
                  options_);
    auto& locate =
        Add(program_, "locate", "Make a table of listings from features and sheets", Locate);
    DeclareLocate(locate, options_);
    locate.callback([this, &locate] {
        TakeFeatures(locate, options_.located);
        chosen_ = Locate;
    });

    auto& book = AddParent(program_, "book", "Write a map book file to start from");
    book.require_subcommand(1);
    auto& newBook =
        Add(book, "new", "Write a map book of a section of maps and one for the index", BookNew);
    newBook.add_option("BOOK", options_.book, "The map book file to write")->required();
    newBook.add_option("--sheets", options_.sheets, "Table with a record for each map sheet")
        ->required();
    AddNumber(newBook, "--start-page", options_.startPage, {1, kMostPages},
              "Page of the book on which the maps begin, {} (default: 1)");
    AddText(newBook, "--row-labels", options_.rowLabels, "Labels of the grid's rows");
    AddText(newBook, "--column-labels", options_.columnLabels, "Labels of the grid's columns");
    newBook.add_flag("--force", options_.force, "Replace a file that exists");

    auto& component = AddParent(program_, "component", "Enter the property page with the desk");
    component.require_subcommand(1);
    Add(component, "install", "Enter it", InstallComponent);
    Add(component, "uninstall", "Take it out", UninstallComponent);
}

// A command succeeds only if its output was written.
int CheckResultsWritten(int exitStatus) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return exitStatus;
    throw CommandError(std::string("The results cannot be written: ") + std::strerror(errno) + ".");
}

}  // namespace

int Run(int argc, const char* const* argv) {
    Commands commands;
    try {
        const auto status = Parse(commands.Program(), argc, argv);
        return CheckResultsWritten(status ? *status : commands.RunChosen());
    } catch (const AlreadyReported&) {
        return kCouldNot;
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
