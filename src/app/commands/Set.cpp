#include "app/commands/Commands.h"
#include "app/commands/Session.h"
#include "app/work/Edit.h"

namespace app {

int Set(const CommonOptions& common, const SetOptions& options) {
    Session session(common);
    session.Open(options.document);
    Edit edit(session);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    edit.Store();
    session.Save();
    return 0;
}

}  // namespace app
