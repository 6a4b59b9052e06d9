#include "app/Session.h"

#include "app/Errors.h"
#include "app/Progress.h"
#include "desk/tables/DbfTable.h"
#include "model/GeneralFunctions.h"

namespace app {
namespace {

std::string Counted(std::int64_t count, const char* one, const char* many) {
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

}  // namespace

Session::Session(const CommonOptions& options)
    : dialogs_(std::make_shared<ConsoleDialogs>(options.verbose)) {
    desk::DeskOptions desk;
    desk.locale = options.locale;
    desk.dialogs = dialogs_;
    desk.listeners = ProgressListeners();
    desk_ = std::make_shared<desk::Desk>(std::move(desk));
    manager_ = std::make_unique<gazetteer::CVNGazetteerManager>(desk_);
}

Session::~Session() {
    for (const auto& font : desk_->Text()->Substitutions())
        Warn("the font \"" + font.wanted + "\" is not installed; \"" + font.used +
             "\" stands in for it.");
}

void Session::Open(const std::string& path) {
    Look(path);
    if (!gazetteer_) throw CommandError("The document \"" + path + "\" has no gazetteer frame.");
}

void Session::Look(const std::string& path) {
    desk_->Open(path);
    // A manager keeps the map book of the document that it was made with.
    manager_ = std::make_unique<gazetteer::CVNGazetteerManager>(desk_);
    FindGazetteer();
}

void Session::Start(desk::Document document, const std::string& path,
                    const host::Ref<host::IHostGroupElement>& gazetteer) {
    desk_->Start(std::move(document), path);
    gazetteer_ = gazetteer;
    manager_ = std::make_unique<gazetteer::CVNGazetteerManager>(desk_);
}

void Session::FindGazetteer() {
    for (const auto& element : desk_->CurrentDocument().elements) {
        gazetteer_ = host::As<host::IHostGroupElement>(element);
        if (gazetteer_ && manager_->IsGazetteerElement(gazetteer_)) return;
    }
    gazetteer_ = nullptr;
}

host::Ref<host::IHostPropertySet> Session::Properties() {
    return gazetteer::StoredGazetteerProperties(gazetteer_);
}

bool Session::CanDraw(gazetteer::Findings& reasons) {
    if (!gazetteer_) {
        reasons = {"The document has no gazetteer frame."};
        return false;
    }
    const auto quiet = dialogs_->Silence();
    const bool canDraw = manager_->CanDrawIndex(gazetteer_);
    reasons = manager_->LastFindings();
    return canDraw;
}

bool Session::Bind() {
    manager_->SetIndexElement(gazetteer_);
    if (dialogs_->TakeFailureShown()) return false;
    if (manager_->HasRun()) TellRun();
    return true;
}

void Session::BindDrawable() {
    if (!Bind()) throw AlreadyTold{};
    if (manager_->CanDraw()) return;
    std::string reasons = "The gazetteer cannot be drawn.";
    for (const auto& finding : manager_->LastFindings()) reasons += ' ' + finding;
    throw CommandError(reasons);
}

void Session::CheckNothingFailed() {
    if (dialogs_->TakeFailureShown()) throw AlreadyTold{};
}

void Session::CheckHasPages() const {
    if (PageCount() == 0)
        throw CommandError("The gazetteer has no page: its frame is lower than the row of titles.");
}

void Session::TellRun() {
    TellTableWarnings();
    const auto& run = manager_->LastRun();
    Tell(Counted(run.records, "record", "records") + ": " +
         Counted(run.listings, "listing", "listings") + ", " +
         Counted(run.duplicates, "duplicate", "duplicates") + " dropped, " +
         Counted(run.combined, "reference", "references") + " combined, " +
         Counted(PageCount(), "page", "pages") + ".");
    const std::int64_t unplaced = run.listings - run.placed;
    if (unplaced == 0) return;
    const bool sample = manager_->BoundSettings().samplePage;
    Warn(Counted(unplaced, "listing", "listings") + " found no place on a page, " +
         (sample ? "since only a sample page was asked for."
                 : "since the frame is lower than the row of titles."));
}

void Session::TellTableWarnings() {
    if (const auto dbf = host::As<desk::DbfTable>(manager_->DatabaseTable()))
        for (const auto& warning : dbf->Warnings()) Warn(warning);
}

}  // namespace app
