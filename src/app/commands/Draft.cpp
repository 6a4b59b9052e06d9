#include "app/commands/Commands.h"
#include "app/commands/Session.h"
#include "app/work/Errors.h"

namespace app {

int Draft(const CommonOptions& common, const DocumentOptions& options) {
    Session session(common);
    session.Open(options.document);
    const auto& element = session.Gazetteer();
    const auto frame = host::As<host::IHostFrameElement>(element);
    if (!session.Bind()) return kCouldNot;
    const auto& manager = session.Manager();
    bool changed = manager.HasRun() && !manager.BoundSettings().autoRefreshListings;

    const std::int32_t members = element->Count();
    session.Manager().DraftMode();
    session.CheckNothingFailed();
    changed = changed || element->Count() != members || !frame->Draft();
    frame->SetDraft(true);
    if (changed) session.Save();
    return kDone;
}

}  // namespace app
