#include "app/document/OpenDocument.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "desk/tables/DbfTable.h"
#include "model/GeneralFunctions.h"

namespace app {
namespace {

std::string PathOf(const host::Ref<host::IHostTable>& table) {
    const auto dbf = host::As<desk::DbfTable>(table);
    return dbf ? dbf->Path() : "";
}

// Whether a file is a table or one that is read with it: code page, memos.
bool IsOfTable(const std::string& path, const std::string& table) {
    if (IsSameFile(path, table)) return true;
    return std::ranges::any_of(std::array{".cpg", ".CPG", ".dbt", ".DBT"}, [&](const char* ending) {
        return IsSameFile(path, std::filesystem::path(table).replace_extension(ending).string());
    });
}

}  // namespace

OpenDocument::OpenDocument(desk::DeskOptions options, WarningListener listener)
    : dialogs_(std::make_shared<RecordingDialogs>(options.dialogs)),
      warningListener_(std::move(listener)) {
    options.dialogs = dialogs_;
    desk_ = std::make_shared<desk::Desk>(std::move(options));
    unbound_ = std::make_shared<gazetteer::CVNGazetteerManager>(desk_);
}

void OpenDocument::Open(const std::string& path) {
    desk_->Open(path);
    frames_.clear();
    FindFrames();
}

void OpenDocument::Start(desk::Document document, const std::string& path) {
    desk_->Start(std::move(document), path);
    frames_.clear();
    FindFrames();
}

OpenDocument::State OpenDocument::Present() const {
    return {desk_->CurrentDocument(), Path(), desk_->Replaceable(), frames_, chosen_};
}

void OpenDocument::Restore(State state) {
    desk_->Start(std::move(state.document), state.path);
    desk_->SetReplaceable(state.replaceable);
    frames_ = std::move(state.frames);
    chosen_ = state.chosen;
}

void OpenDocument::FindFrames() {
    const auto known = std::exchange(frames_, {});
    unbound_ = std::make_shared<gazetteer::CVNGazetteerManager>(desk_);
    for (const auto& element : desk_->CurrentDocument().elements) {
        const auto group = host::As<host::IHostGroupElement>(element);
        if (!group || !unbound_->IsGazetteerElement(group)) continue;
        const auto before = std::ranges::find(known, group, &GazetteerFrame::element);
        frames_.push_back({group, std::make_shared<gazetteer::CVNGazetteerManager>(desk_),
                           before == known.end() ? 0 : before->page});
    }
    if (chosen_ >= frames_.size() || known.empty()) chosen_ = 0;
}

host::Ref<host::IHostGroupElement> OpenDocument::Gazetteer() const {
    return Chosen() ? Chosen()->element : nullptr;
}

host::Ref<host::IHostPropertySet> OpenDocument::Properties() const {
    return gazetteer::StoredGazetteerProperties(Gazetteer());
}

gazetteer::CVNGazetteerManager& OpenDocument::Manager() const {
    return Chosen() ? *Chosen()->manager : *unbound_;
}

bool OpenDocument::CanDraw(gazetteer::Findings& reasons) {
    if (!Chosen()) {
        reasons = {"The document has no gazetteer frame."};
        return false;
    }
    const RecordingDialogs::Silent silent(*dialogs_);
    const bool canDraw = Manager().CanDrawIndex(Gazetteer());
    reasons = Manager().LastFindings();
    return canDraw;
}

bool OpenDocument::IsMadeFrom(const std::string& path) const {
    if (IsSameFile(path, desk::MapBookPath(desk_->CurrentDocument(), Path()))) return true;
    return std::ranges::any_of(frames_, [&](const GazetteerFrame& frame) {
        const auto& manager = *frame.manager;
        return IsOfTable(path, manager.BoundSettings().indexDatabaseFile) ||
               IsOfTable(path, PathOf(manager.DatabaseTable())) ||
               IsOfTable(path, PathOf(manager.IndexLayerTable()));
    });
}

void OpenDocument::CheckNothingFailed() {
    if (dialogs_->TakeFailureShown()) throw AlreadyReported{};
}

}  // namespace app
