#include <algorithm>
#include <utility>

#include "app/window/Actions.h"
#include "app/window/Dialogs.h"
#include "app/window/DocumentStep.h"
#include "app/window/MainWindow.h"
#include "app/window/PageView.h"
#include "app/window/StatusPanes.h"
#include "app/window/WaitPointer.h"
#include "desk/window/ObjectSet.h"
#include "desk/window/PropertySheet.h"
#include "desk/window/WidgetText.h"

/// The edits of the document and their history.
namespace app {

void MainWindow::ConnectEdits() {
    connect(actions_->undo, &QAction::triggered, &history_, &QUndoStack::undo);
    connect(actions_->redo, &QAction::triggered, &history_, &QUndoStack::redo);
    connect(actions_->properties, &QAction::triggered, this, &MainWindow::ShowProperties);
    connect(actions_->pageSetup, &QAction::triggered, this, &MainWindow::ShowPageSetup);
    connect(actions_->draft, &QAction::triggered, this, &MainWindow::SetDraft);
    connect(&history_, &QUndoStack::indexChanged, this, &MainWindow::ShowHistory);
    connect(&history_, &QUndoStack::cleanChanged, this, [this](bool clean) {
        session_->SetModified(!clean);
        setWindowModified(!clean);
    });
    ShowHistory();
}

void MainWindow::ShowHistory() {
    const auto show = [](QAction& action, const QString& verb, bool can, const QString& text) {
        action.setEnabled(can);
        action.setText(can ? verb + ' ' + text : verb);
    };
    show(*actions_->undo, "&Undo", history_.canUndo(), history_.undoText());
    show(*actions_->redo, "&Redo", history_.canRedo(), history_.redoText());
}

// A document that is not on disk yet counts as modified.
void MainWindow::ForgetHistory() {
    const bool modified = session_->Modified();
    history_.clear();
    if (modified)
        history_.resetClean();
    else
        history_.setClean();
}

void MainWindow::RecordEdit(const QString& text, DocumentState before) {
    if (before == session_->State()) return;
    history_.push(new DocumentStep(text, std::move(before),
                                   [this](DocumentState& state) { ExchangeState(state); }));
}

void MainWindow::ExchangeState(DocumentState& state) {
    auto present = session_->State();
    {
        const WaitPointer wait;
        session_->Restore(state);
    }
    state = std::move(present);
    const auto& elements = session_->Document().TheDesk().CurrentDocument().elements;
    if (std::ranges::find(elements, selected_) == elements.end()) selected_ = nullptr;
    RecordPage();
    ListPages();
    ShowState();
    status_->ShowResult(desk::ToQt(session_->Summary()));
}

void MainWindow::SetDraft(bool draft) {
    auto before = session_->State();
    {
        const WaitPointer wait;
        session_->SetDraft(draft);
    }
    RecordEdit("Draft", std::move(before));
    RecordPage();
    ShowState();
}

void MainWindow::ShowPageSetup() {
    auto before = session_->State();
    const bool changed = ChangePageSetup(*session_, *this);
    RecordEdit("Page Setup", std::move(before));
    RecordPage();
    ListPages();
    ShowState();
    if (changed) status_->ShowResult(desk::ToQt(session_->Summary()));
}

// Shows the properties of the selected element, or of the gazetteer if none is selected.
void MainWindow::ShowProperties() {
    if (!selected_) Select(session_->Document().Gazetteer());
    auto before = session_->State();
    const bool draftBefore = session_->InDraft();
    desk::PropertySheet sheet(
        elementPages_.Make(*session_),
        std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{selected_}),
        this);
    connect(&sheet, &desk::PropertySheet::Applied, this, [&] {
        RecordEdit("Properties", std::exchange(before, session_->State()));
        ShowState();
    });
    sheet.ApplyThrough([this](const std::function<void()>& apply) {
        const bool done = session_->Run(apply);
        if (!done) ShowCancelled();
        return done;
    });
    sheet.exec();
    // An edit ends the draft state even if it is not applied.
    RecordEdit("Draft", std::move(before));
    if (session_->InDraft() != draftBefore) RefreshLayout();
}

}  // namespace app
