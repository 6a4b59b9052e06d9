#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/document/Errors.h"

namespace app {
namespace {

int Draft(const CommonOptions& common, const std::string& path) {
    CommandSession session(common);
    auto& document = session.Open(path);
    const auto& element = document.Gazetteer();
    const auto frame = host::As<host::IHostFrameElement>(element);
    if (!session.Bind()) return kCouldNot;
    auto& manager = document.Manager();
    bool changed = manager.HasRun() && !manager.BoundSettings().autoRefreshListings;

    const std::int32_t members = element->Count();
    manager.DraftMode();
    document.CheckNothingFailed();
    changed = changed || element->Count() != members || !frame->Draft();
    frame->SetDraft(true);
    if (changed) document.Save();
    return kDone;
}

}  // namespace

void AddDraft(Arguments& program) {
    const auto document = std::make_shared<std::string>();
    auto command =
        AddCommand(program, "draft", "Take the drawn page away and set the draft state",
                   [document](const CommonOptions& common) { return Draft(common, *document); });
    AddDocument(command, *document).Help(kDraftHelp);
}

}  // namespace app
