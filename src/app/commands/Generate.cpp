#include "app/commands/Commands.h"
#include "app/commands/Session.h"

namespace app {

int Generate(const CommonOptions& common, const DocumentOptions& options) {
    Session session(common);
    session.Open(options.document);
    session.BindDrawable();
    const auto& manager = session.Manager();
    if (manager.HasRun() && !manager.BoundSettings().autoRefreshListings) session.Save();
    return 0;
}

}  // namespace app
