#include "app/Sheets.h"
#include "app/commands/Commands.h"

namespace app {

int Export(const CommonOptions& common, const ExportOptions& options) {
    CheckOutputName(options.output);
    Session session(common);
    session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    WriteSheets(session, options.output, ParsePages(options.pages, session.PageCount()));
    return 0;
}

}  // namespace app
