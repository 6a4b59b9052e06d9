#include "app/commands/CommandLine.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "app/commands/Commands.h"
#include "app/commands/ConsoleDialogs.h"
#include "app/commands/HelpTexts.h"
#include "app/document/Errors.h"
#include "support/ErrorHandling.h"

namespace app {
namespace {

void AddCommands(Arguments program) {
    AddMake(program);
    AddNew(program);
    AddSet(program);
    AddColumn(program);
    AddCheck(program);
    AddGenerate(program);
    AddShow(program);
    AddDraft(program);
    AddDraw(program);
    AddExport(program);
    AddTable(program);
    AddComponent(program);
    program.Help(kProgramHelp);
}

// Results count only once they have left the program.
int CheckResultsWritten(int exitStatus) {
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return exitStatus;
    throw CommandError(std::string("The results cannot be written: ") + std::strerror(errno) + ".");
}

}  // namespace

Arguments AddCommand(Arguments& parent, const char* name, const char* text, CommandRun run) {
    const auto common = std::make_shared<CommonOptions>();
    auto command =
        parent.AddCommand(name, text, [common, run = std::move(run)] { return run(*common); });
    command.Text("--locale", common->locale,
                 "Locale for sorting and numbers, such as is, de_DE or de@collation=phonebook "
                 "(default: yours)");
    command.Flag("--verbose", common->verbose, "Show whole call stacks of failures");
    return command;
}

Arguments& AddDocument(Arguments& command, std::string& document) {
    return command.Path("DOC", document, "The document, a file that new or make has written")
        .Required();
}

void AddNewDocumentOptions(Arguments& command, NewDocumentOptions& options) {
    command.Path("--book", options.book, "Map book file that the document belongs to")
        .Text("--page-size", options.pageSize, "letter, a4 or WIDTHxHEIGHT in inches")
        .Text("--frame", options.frame,
              "LEFT,BOTTOM,WIDTH,HEIGHT of the gazetteer on the sheet, in inches")
        .Texts("--set", options.assignments, "KEY=VALUE, as for the command set (repeatable)")
        .Flag("--sample", options.sample, "Generate a sample page only");
}

int Run(int argc, const char* const* argv) {
    ArgumentParser parser("gazetteer",
                          "Makes the printed index of a map book from a table of listings.",
                          GAZETTEER_VERSION);
    AddCommands(parser.Program());
    if (const auto status = parser.Parse(argc, argv)) return *status;
    try {
        return CheckResultsWritten(parser.RunChosen());
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
