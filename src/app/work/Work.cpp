#include "app/work/Work.h"

#include <utility>

#include "app/work/Errors.h"
#include "model/GeneralFunctions.h"

namespace app {
namespace {

desk::DeskOptions WithDialogs(desk::DeskOptions options,
                              const std::shared_ptr<NotedDialogs>& dialogs) {
    options.dialogs = dialogs;
    return options;
}

}  // namespace

Work::Work(desk::DeskOptions options, std::shared_ptr<NotedDialogs> dialogs)
    : dialogs_(std::move(dialogs)),
      desk_(std::make_shared<desk::Desk>(WithDialogs(std::move(options), dialogs_))),
      manager_(NewManager()) {}

void Work::Start(desk::Document document, const std::string& path,
                 const host::Ref<host::IHostGroupElement>& gazetteer) {
    desk_->Start(std::move(document), path);
    Use(gazetteer, NewManager());
}

host::Ref<host::IHostPropertySet> Work::Properties() {
    return gazetteer::StoredGazetteerProperties(gazetteer_);
}

bool Work::CanDraw(gazetteer::Findings& reasons) {
    if (!gazetteer_) {
        reasons = {"The document has no gazetteer frame."};
        return false;
    }
    const auto quiet = dialogs_->Silence();
    const bool canDraw = manager_->CanDrawIndex(gazetteer_);
    reasons = manager_->LastFindings();
    return canDraw;
}

void Work::CheckNothingFailed() {
    if (dialogs_->TakeFailureShown()) throw AlreadyTold{};
}

std::shared_ptr<gazetteer::CVNGazetteerManager> Work::NewManager() const {
    return std::make_shared<gazetteer::CVNGazetteerManager>(desk_);
}

void Work::Use(host::Ref<host::IHostGroupElement> gazetteer,
               std::shared_ptr<gazetteer::CVNGazetteerManager> manager) {
    gazetteer_ = std::move(gazetteer);
    manager_ = std::move(manager);
}

}  // namespace app
