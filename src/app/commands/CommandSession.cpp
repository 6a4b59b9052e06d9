#include "app/commands/CommandSession.h"

#include <memory>

#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/document/RunTexts.h"

namespace app {

desk::DeskOptions DeskOptionsOf(const CommonOptions& options) {
    desk::DeskOptions desk;
    desk.locale = options.locale;
    desk.dialogs = std::make_shared<ConsoleDialogs>(options.verbose);
    desk.listeners = ProgressListeners();
    return desk;
}

CommandSession::CommandSession(const CommonOptions& options)
    : document_(DeskOptionsOf(options), Warn) {}

CommandSession::~CommandSession() {
    const auto& engine = *document_.TheDesk().Text();
    for (const auto& warning : FontWarnings(engine)) Warn(warning);
    const auto missing = MissingCharactersWarning(engine);
    if (!missing.empty()) Warn(missing);
}

OpenDocument& CommandSession::Open(const std::string& path) {
    if (!Look(path).Chosen())
        throw CommandError("The document \"" + path + "\" has no gazetteer frame.");
    return document_;
}

OpenDocument& CommandSession::Look(const std::string& path) {
    document_.Open(path);
    return document_;
}

bool CommandSession::Bind() {
    auto& manager = document_.Manager();
    manager.SetIndexElement(document_.Gazetteer());
    if (document_.Dialogs().TakeFailureShown()) return false;
    if (!manager.HasRun()) return true;
    Tell(RunSummary(manager));
    for (const auto& warning : RunWarnings(manager)) Warn(warning);
    return true;
}

void CommandSession::BindDrawable() {
    if (!Bind()) throw AlreadyReported{};
    const auto& manager = document_.Manager();
    if (!manager.CanDraw()) throw CommandError(UndrawableSentence(manager));
}

void CommandSession::CheckHasPages() {
    if (document_.PageCount() == 0) throw CommandError(NoPageReason(document_.Manager()));
}

}  // namespace app
