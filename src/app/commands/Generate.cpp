#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"

namespace app {
namespace {

int Generate(const CommonOptions& common, const std::string& path) {
    CommandSession session(common);
    auto& document = session.Open(path);
    session.BindDrawable();
    const auto& manager = document.Manager();
    if (manager.HasRun() && !manager.BoundSettings().autoRefreshListings) document.Save();
    return 0;
}

}  // namespace

void AddGenerate(Arguments& program) {
    const auto document = std::make_shared<std::string>();
    auto command =
        AddCommand(program, "generate", "Reload the stored results, or run and store them",
                   [document](const CommonOptions& common) { return Generate(common, *document); });
    AddDocument(command, *document).Help(kGenerateHelp);
}

}  // namespace app
