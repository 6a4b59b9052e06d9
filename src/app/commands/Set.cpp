#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/document/SettingsEdit.h"

namespace app {
namespace {

struct SetOptions {
    std::string document;
    std::vector<std::string> assignments;
};

int Set(const CommonOptions& common, const SetOptions& options) {
    CommandSession session(common);
    auto& document = session.Open(options.document);
    SettingsEdit edit(document);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    edit.Store();
    document.Save();
    return 0;
}

}  // namespace

void AddSet(Arguments& program) {
    const auto options = std::make_shared<SetOptions>();
    auto command =
        AddCommand(program, "set", "Change properties, as on the property page",
                   [options](const CommonOptions& common) { return Set(common, *options); });
    AddDocument(command, options->document)
        .Texts("KEY=VALUE", options->assignments, "What to change")
        .Required()
        .Help(SetHelp());
}

}  // namespace app
