#include <algorithm>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/ResultSources.h"
#include "app/document/RunTexts.h"
#include "app/window/LengthBox.h"
#include "app/window/WindowSession.h"

/// How the session binds the gazetteers anew, and gathers its notices and findings from them.
namespace app {

void WindowSession::Refresh() {
    // An outer run that was cancelled adds the notice itself.
    if (control_.Running())
        RunOrRestore([this] { RefreshFrames(); });
    else
        Run([this] { RefreshFrames(); });
}

void WindowSession::ForEachFrame(const std::function<void()>& act) {
    const std::size_t chosen = document_.ChosenIndex();
    for (std::size_t i = 0; i < document_.Frames().size(); ++i) {
        document_.Choose(i);
        act();
    }
    document_.Choose(chosen);
}

void WindowSession::RefreshOld() {
    Run([this] {
        ForEachFrame([this] {
            if (DropOldResults(document_)) modified_ = true;
        });
        RefreshFrames();
    });
}

void WindowSession::RefreshFrames() {
    notices_.clear();
    summary_.clear();
    findings_ = reasons_ = {};
    document_.FindFrames();
    if (HasDocument() && document_.Frames().empty())
        AddNotice("The document has no gazetteer frame.");
    ForEachFrame([this] { RefreshChosen(); });
    AddElementsOffSheet(document_, findings_);
    AddFonts(document_, std::nullopt, findings_);
}

void WindowSession::RefreshChosen() {
    auto& frame = *document_.Chosen();
    auto& manager = *frame.manager;
    manager.SetIndexElement(frame.element);
    if (frame.page == 0) frame.page = manager.BoundSettings().defaultPage;
    frame.page = std::clamp(frame.page, 1, std::max(1, manager.Working().pageCount));
    const auto& listings = manager.Working().listings;
    if (manager.HasRun() || (frame.listings && frame.listings != listings))
        RecordSources(document_);
    frame.listings = listings;
    AddResultNotices();
    Draw();
}

void WindowSession::AddResultNotices() {
    const auto& manager = document_.Manager();
    if (!summary_.empty()) summary_ += ' ';
    summary_ += manager.HasRun() ? RunSummary(manager) : StoredSummary(manager);
    if (manager.HasRun())
        for (const auto& remark : TableRemarks(manager)) AddNotice(remark);
    if (!manager.CanDraw()) {
        const auto reasons = document_.Reasons();
        AddUndrawable(UndrawableSentence(reasons), reasons);
    } else if (document_.PageCount() == 0) {
        const auto reason = NoPageReason(manager);
        AddUndrawable(reason, {reason});
    } else {
        FindInChosen();
    }
}

void WindowSession::AddUndrawable(const std::string& notice, const gazetteer::Findings& reasons) {
    AddNotice(notice);
    for (const auto& reason : reasons)
        reasons_.Add(findings::kUndrawable, [&] {
            Finding finding{{}, reason};
            finding.element = document_.Gazetteer();
            return finding;
        });
}

void WindowSession::FindInChosen() {
    try {
        AddGazetteerFindings(document_, WindowUnit(), {}, findings_);
    } catch (const std::exception&) {
        AddUndrawable(CurrentSentence(), {CurrentSentence()});
    }
}

}  // namespace app
