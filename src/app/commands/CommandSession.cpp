#include "app/commands/CommandSession.h"

#include <memory>

#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/document/ResultSources.h"
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
    if (found_) return;
    for (const auto& font : document_.TheDesk().Text()->Substitutions()) Warn(FontWarning(font));
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
    for (const auto& remark : TableRemarks(manager)) Warn(remark);
    if (manager.CanDraw()) RecordSources(document_);
    return true;
}

void CommandSession::BindDrawable() {
    if (!Bind()) throw AlreadyReported{};
    if (!document_.Manager().CanDraw()) throw CommandError(UndrawableSentence(document_.Reasons()));
}

FindingList CommandSession::Find(const std::optional<PageRange>& pages, const MapPages* maps) {
    found_ = true;
    return FindFindings(
        document_,
        document_.TheDesk().UsesLetterFormat() ? LengthUnit::Inches : LengthUnit::Millimeters,
        pages, maps);
}

FindingList CommandSession::TellFindings(const std::optional<PageRange>& pages,
                                         const MapPages* maps) {
    auto list = Find(pages, maps);
    for (const auto& sentence : list.Sentences()) Warn(sentence);
    return list;
}

void CommandSession::CheckFindings(const std::optional<PageRange>& pages, bool strict,
                                   const MapPages* maps) {
    const auto list = TellFindings(pages, maps);
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
