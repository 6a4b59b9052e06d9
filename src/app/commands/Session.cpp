#include "app/commands/Session.h"

#include <memory>

#include "app/commands/ConsoleDialogs.h"
#include "app/commands/Progress.h"
#include "app/work/Errors.h"
#include "app/work/RunTexts.h"

namespace app {
namespace {

desk::DeskOptions DeskOptionsOf(const CommonOptions& options) {
    desk::DeskOptions desk;
    desk.locale = options.locale;
    desk.listeners = ProgressListeners();
    return desk;
}

}  // namespace

Session::Session(const CommonOptions& options)
    : Work(DeskOptionsOf(options), std::make_shared<ConsoleDialogs>(options.verbose)) {}

Session::~Session() {
    for (const auto& warning : FontWarnings(*TheDesk().Text())) Warn(warning);
    const auto missing = MissingCharactersWarning(*TheDesk().Text());
    if (!missing.empty()) Warn(missing);
}

void Session::Open(const std::string& path) {
    Look(path);
    if (!Gazetteer()) throw CommandError("The document \"" + path + "\" has no gazetteer frame.");
}

void Session::Look(const std::string& path) {
    TheDesk().Open(path);
    auto manager = NewManager();
    host::Ref<host::IHostGroupElement> gazetteer;
    for (const auto& element : TheDesk().CurrentDocument().elements) {
        const auto group = host::As<host::IHostGroupElement>(element);
        if (!group || !manager->IsGazetteerElement(group)) continue;
        gazetteer = group;
        break;
    }
    Use(gazetteer, std::move(manager));
}

bool Session::Bind() {
    Manager().SetIndexElement(Gazetteer());
    if (Dialogs().TakeFailureShown()) return false;
    if (!Manager().HasRun()) return true;
    const auto warnings = RunWarnings(Manager());
    Tell(RunSummary(Manager()));
    for (const auto& warning : warnings) Warn(warning);
    return true;
}

void Session::BindDrawable() {
    if (!Bind()) throw AlreadyTold{};
    if (Manager().CanDraw()) return;
    std::string reasons = "The gazetteer cannot be drawn.";
    for (const auto& finding : Manager().LastFindings()) reasons += ' ' + finding;
    throw CommandError(reasons);
}

void Session::CheckHasPages() {
    if (PageCount() == 0) throw CommandError(NoPageReason(Manager()));
}

void Session::Caution(const std::string& sentence) {
    Warn(sentence);
}

}  // namespace app
