#include "app/commands/Commands.h"
#include "app/commands/Progress.h"
#include "app/commands/Session.h"
#include "app/work/Edit.h"
#include "app/work/FilePaths.h"
#include "app/work/NewDocument.h"
#include "app/work/Sheets.h"

namespace app {

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

}  // namespace app
