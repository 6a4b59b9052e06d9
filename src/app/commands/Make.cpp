#include <memory>

#include "app/Edit.h"
#include "app/Files.h"
#include "app/HelpTexts.h"
#include "app/NewDocument.h"
#include "app/Progress.h"
#include "app/Session.h"
#include "app/Sheets.h"
#include "app/commands/Commands.h"

namespace app {
namespace {

struct MakeOptions : NewDocumentOptions {
    std::string output;
    std::string document;  ///< Where the document is kept; empty: nowhere.
};

int Make(const CommonOptions& common, const MakeOptions& options) {
    CheckOutputName(options.output);
    CheckApart(options.output, {options.listingDatabase, options.book, options.document});
    CheckApart(options.document, {options.listingDatabase, options.book});
    Session session(common);
    // Without a document of its own the work has no file; its paths are seen from the folder of the
    // output.
    StartNewDocument(session, options,
                     options.document.empty() ? options.output : options.document);
    DressForPrint(session);
    Edit edit(session);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();

    session.BindDrawable();
    session.CheckHasPages();
    // First what may be refused at once: a failing command leaves no sheet behind.
    if (!options.document.empty()) session.Save();
    WriteSheets(session, options.output, {1, session.PageCount()});
    ClearProgress();
    return 0;
}

}  // namespace

void AddMake(Arguments& program) {
    const auto options = std::make_shared<MakeOptions>();
    auto command =
        AddCommand(program, "make", "Make an index in one step, ready to print",
                   [options](const CommonOptions& common) { return Make(common, *options); });
    command.Path("LISTINGS", options->listingDatabase, "Listing database, a dBase table")
        .Required()
        .Path("-o,--output", options->output, "File to write: .pdf, .png or .svg")
        .Required()
        .Path("--document", options->document, "Keep the document under this name");
    AddNewDocumentOptions(command, *options);
    command.Help(kMakeHelp);
}

}  // namespace app
