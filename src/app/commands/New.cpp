#include <filesystem>

#include "app/commands/Commands.h"
#include "app/commands/Session.h"
#include "app/work/Edit.h"
#include "app/work/Errors.h"
#include "app/work/FilePaths.h"
#include "app/work/NewDocument.h"

namespace app {

int New(const CommonOptions& common, const NewOptions& options) {
    CheckApart(options.document, {options.listingDatabase, options.book});
    std::error_code ignored;
    if (!options.force && std::filesystem::exists(options.document, ignored))
        throw CommandError("The document \"" + options.document +
                           "\" exists already; --force replaces it.");
    Session session(common);
    StartNewDocument(session, options, options.document);
    Edit edit(session);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();
    // One that came about meanwhile is refused as well.
    if (!options.force) session.TheDesk().SetReplaceable(desk::FileState{});
    session.Save();
    return 0;
}

}  // namespace app
