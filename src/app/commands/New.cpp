#include <filesystem>
#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/NewDocument.h"
#include "app/document/SettingsEdit.h"

namespace app {
namespace {

struct NewOptions : NewDocumentOptions {
    std::string document;
    bool force = false;
};

int New(const CommonOptions& common, const NewOptions& options) {
    CheckApart(options.document, {options.listingDatabase, options.book});
    std::error_code ignored;
    if (!options.force && std::filesystem::exists(options.document, ignored))
        throw CommandError("The document \"" + options.document +
                           "\" exists already; --force replaces it.");
    CommandSession session(common);
    auto& document = session.Document();
    StartNewDocument(document, options, options.document);
    SettingsEdit edit(document);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();
    // One that came about meanwhile is refused as well.
    if (!options.force) document.TheDesk().SetReplaceable(desk::FileState{});
    document.Save();
    return 0;
}

}  // namespace

void AddNew(Arguments& program) {
    const auto options = std::make_shared<NewOptions>();
    auto command =
        AddCommand(program, "new", "Make a new document with the default columns",
                   [options](const CommonOptions& common) { return New(common, *options); });
    command.Path("DOC", options->document, "The document to write")
        .Required()
        .Path("--listing-database", options->listingDatabase, "Listing database, a dBase table")
        .Required()
        .Flag("--force", options->force, "Replace a document that exists");
    AddNewDocumentOptions(command, *options);
    command.Help(kNewHelp);
}

}  // namespace app
