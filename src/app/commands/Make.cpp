#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/Progress.h"
#include "app/document/FilePaths.h"
#include "app/document/NewDocument.h"
#include "app/document/SettingsEdit.h"
#include "app/document/Sheets.h"
#include "desk/drawing/PageWriter.h"

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
    CommandSession session(common);
    auto& document = session.Document();
    // Without a document of its own the work has no file; its paths are seen from the folder of the
    // output.
    StartNewDocument(document, options,
                     options.document.empty() ? options.output : options.document);
    DressForPrint(document);
    SettingsEdit edit(document);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();

    session.BindDrawable();
    session.CheckHasPages();
    // First what may be refused at once: a failing command leaves no sheet behind.
    if (!options.document.empty()) document.Save();
    WriteSheets(document, options.output, {1, document.PageCount()});
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
        .Path("-o,--output", options->output, "File to write: " + desk::PageEndings())
        .Required()
        .Path("--document", options->document, "Keep the document under this name");
    AddNewDocumentOptions(command, *options);
    command.Help(kMakeHelp);
}

}  // namespace app
