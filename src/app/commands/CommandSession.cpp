#include "app/commands/CommandSession.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/document/RunTexts.h"
#include "app/document/Suggestion.h"
#include "desk/locale/IcuLocale.h"
#include "desk/locale/LocaleNames.h"

namespace app {

namespace {

// Throws with the nearest locale for a name that is unknown.
void CheckLocale(const std::string& name) {
    try {
        const desk::IcuLocale locale(name);
    } catch (const host::Failure& failure) {
        std::vector<std::string> texts;
        const auto names = desk::LocaleNames();
        for (const auto& known : names) texts.push_back(known.text);
        const std::string nearest = Nearest(name, texts);
        if (nearest.empty()) throw CommandError(failure.cause);
        throw CommandError(failure.cause + " Did you mean \"" +
                           std::ranges::find(names, nearest, &desk::LocaleName::text)->locale +
                           "\"?");
    }
}

}  // namespace

desk::DeskOptions DeskOptionsOf(const CommonOptions& options) {
    desk::DeskOptions desk;
    CheckLocale(options.locale);
    desk.locale = options.locale;
    desk.dialogs = std::make_shared<ConsoleDialogs>(options.verbose);
    desk.listeners = ProgressListeners();
    return desk;
}

CommandSession::CommandSession(const CommonOptions& options)
    : document_(DeskOptionsOf(options), Warn) {}

CommandSession::~CommandSession() {
    for (const auto& font : document_.TheDesk().Text()->Substitutions()) {
        const auto warning = FontWarning(font);
        const auto isThis = [&, start = warning.substr(0, warning.size() - 1)](const auto& text) {
            return text.starts_with(start);
        };
        if (std::ranges::none_of(told_, isThis)) Warn(warning);
    }
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
    for (const auto& warning : TableWarnings(manager)) Warn(warning);
    return true;
}

void CommandSession::BindDrawable() {
    if (!Bind()) throw AlreadyReported{};
    if (!document_.Manager().CanDraw()) throw CommandError(UndrawableSentence(document_.Reasons()));
}

FindingList CommandSession::Find(const std::optional<PageRange>& pages) {
    auto list = FindFindings(
        document_,
        document_.TheDesk().UsesLetterFormat() ? LengthUnit::Inches : LengthUnit::Millimeters,
        pages);
    for (const auto& finding : list.Kept()) told_.push_back(finding.text);
    return list;
}

FindingList CommandSession::TellFindings(const std::optional<PageRange>& pages) {
    auto list = Find(pages);
    for (const auto& sentence : list.Sentences()) Warn(sentence);
    return list;
}

void CommandSession::CheckFindings(const std::optional<PageRange>& pages, bool strict) {
    const auto list = TellFindings(pages);
    if (strict && !list.IsEmpty())
        throw CommandError("With --strict no file is written: there " +
                           std::string(list.Total() == 1
                                           ? "is 1 finding."
                                           : "are " + std::to_string(list.Total()) + " findings."));
}

void CommandSession::CheckHasPages() {
    if (document_.PageCount() == 0) throw CommandError(NoPageReason(document_.Manager()));
}

}  // namespace app
