#include "app/commands/Commands.h"
#include "app/commands/Progress.h"
#include "app/commands/Session.h"
#include "app/work/FilePaths.h"
#include "app/work/Sheets.h"

namespace app {

int Export(const CommonOptions& common, const ExportOptions& options) {
    CheckOutputName(options.output);
    CheckApart(options.output, {options.document});
    const auto asked = ParsePages(options.pages);
    Session session(common);
    session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    const auto pages = asked.value_or(PageRange{1, session.PageCount()});
    CheckPage(pages.last, session.PageCount());
    WriteSheets(session, options.output, pages);
    ClearProgress();
    return 0;
}

}  // namespace app
