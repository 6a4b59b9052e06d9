#include "app/document/OpenDocument.h"

#include <algorithm>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/KeyValues.h"
#include "app/document/StoredValues.h"
#include "model/GeneralFunctions.h"
#include "model/KeyNames.h"

namespace app {
namespace {

// Empty if a damaged document has none.
std::string ListingDatabaseOf(const host::Ref<host::IHostGroupElement>& element) {
    const auto item =
        ItemOf(*gazetteer::StoredGazetteerProperties(element), gazetteer::keys::kIndexDatabaseFile);
    const auto* const file = std::get_if<std::string>(&item);
    return file ? *file : std::string();
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
        frames_.push_back({group, std::make_shared<gazetteer::CVNGazetteerManager>(desk_)});
        if (before == known.end()) continue;
        frames_.back().page = before->page;
        frames_.back().listings = before->listings;
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
    reasons = FaultsOfStoredValues(*Properties(), Host().Locale());
    if (!Gazetteer()->Geometry()) reasons.emplace_back(kFrameWithoutPlace);
    if (!reasons.empty()) return false;
    const RecordingDialogs::Silent silent(*dialogs_);
    const bool canDraw = Manager().CanDrawIndex(Gazetteer());
    reasons = silent.Failed() ? gazetteer::Findings{silent.Sentence()} : Manager().LastFindings();
    return canDraw;
}

gazetteer::Findings OpenDocument::Reasons() {
    auto reasons = FaultsOfStoredValues(*Properties(), Host().Locale());
    return reasons.empty() ? Manager().LastFindings() : reasons;
}

bool OpenDocument::IsMadeFrom(const std::string& path) const {
    if (IsSameFile(path, desk::MapBookPath(desk_->CurrentDocument(), Path()))) return true;
    auto tables = desk_->IndexLayerFiles();
    for (const auto& frame : frames_)
        tables.push_back(desk_->TableFile(ListingDatabaseOf(frame.element)));
    return std::ranges::any_of(tables,
                               [&](const std::string& table) { return IsOfTable(path, table); });
}

void OpenDocument::CheckNothingFailed() {
    if (dialogs_->TakeFailureShown()) throw AlreadyReported{};
}

}  // namespace app
