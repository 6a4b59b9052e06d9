#include <QFileInfo>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/window/Actions.h"
#include "app/window/Documents.h"
#include "app/window/FindingsDock.h"
#include "app/window/Icons.h"
#include "app/window/MainWindow.h"
#include "app/window/ManualWindow.h"
#include "app/window/NoticeBar.h"
#include "app/window/PageView.h"
#include "app/window/PagesDock.h"
#include "app/window/Printing.h"
#include "app/window/StartPage.h"
#include "app/window/StatusPanes.h"
#include "desk/window/ExpressionEditor.h"
#include "desk/window/ObjectDialog.h"
#include "desk/window/SymbolDialog.h"
#include "desk/window/WidgetText.h"
#include "desk/window/WindowDialogs.h"

/// The layout of the window and the connections between its parts.
namespace app {

desk::DeskOptions MainWindow::DeskOptionsFor(const std::string& locale) {
    const desk::ParentWidget self = [this] { return this; };
    desk::DeskOptions options;
    options.locale = locale;
    options.dialogs = std::make_shared<desk::WindowDialogs>(self);
    options.listeners.statusText = [this](std::int32_t pane, const std::string& text) {
        if (pane != 0) return;
        ShowProgress(progress_.Take(text));
        // An empty text ends a stage whose results may be stored next.
        if (!text.empty()) control_->Poll();
    };
    options.listeners.step = [this](auto step, auto steps) { progress_.SetStep(step, steps); };
    options.listeners.animation = [this](desk::AnimationStep step) {
        status_->ShowAnimation(step);
    };
    options.listeners.sorting = [this](auto step, auto steps) {
        ShowProgress(progress_.Sort(step, steps));
        control_->Poll();
    };
    options.listeners.refresh = [this] { RecordPageSoon(); };
    options.expressionEditor = desk::ExpressionEditor(self, locale);
    options.window.newObjectDialog = [this, self] {
        return std::make_shared<desk::ObjectDialog>(
            self, desk::FromQt(QFileInfo(desk::ToQt(session_->Path())).absolutePath()));
    };
    options.window.newSymbolDialog = [this, self] {
        return std::make_shared<desk::SymbolDialog>(session_->Host(), self);
    };
    options.window.windowHandle = [this] { return static_cast<host::WindowHandle>(winId()); };
    return options;
}

void MainWindow::ShowProgress(const std::optional<RunProgress::Shown>& shown) {
    if (!shown) return;
    status_->ShowRunText(desk::ToQt(shown->text));
    control_->Show(*shown);
}

void MainWindow::Arrange() {
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    auto* page = new QWidget(stack_);
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notices_);
    layout->addWidget(view_, 1);
    stack_->addWidget(start_);
    stack_->addWidget(page);
    setCentralWidget(stack_);
    addDockWidget(Qt::LeftDockWidgetArea, pages_);
    setStatusBar(status_);
    pages_->toggleViewAction()->setText("Page &List");
    addDockWidget(Qt::BottomDockWidgetArea, findings_);
    findings_->toggleViewAction()->setText("&Findings");
    actions_->AddMenus(*this, {pages_->toggleViewAction(), findings_->toggleViewAction()});
    actions_->AddToolBar(*this);
    actions_->AddPageMenu(*view_);
    addActions({actions_->goToPage, actions_->findPage});
}

void MainWindow::ConnectFiles() {
    const auto on = [](QAction* action, auto* receiver, auto act) {
        connect(action, &QAction::triggered, receiver, act);
    };
    on(actions_->newDocument, documents_, [this] { documents_->New(); });
    on(actions_->open, documents_, [this] { documents_->Open(); });
    on(actions_->save, documents_, &Documents::Save);
    on(actions_->saveAs, documents_, &Documents::SaveAs);
    on(actions_->print, this, [this] { DrawPages([this] { return Print(*session_, *this); }); });
    on(actions_->exportPages, this, [this] { Export({}); });
    on(actions_->quit, this, &QWidget::close);
    on(actions_->manual, this, [this] { (new ManualWindow(this))->show(); });
    on(actions_->about, this, &MainWindow::ShowAbout);
    connect(documents_, &Documents::Replaced, this, &MainWindow::TakeDocument);
    connect(documents_, &Documents::Cancelled, this, &MainWindow::ShowCancelled);
    connect(control_, &RunControl::RunningChanged, this, [this](bool running) {
        // Names of pages cannot be asked for during a run.
        pages_->setUpdatesEnabled(!running);
    });
    connect(documents_, &Documents::Saved, &history_, &QUndoStack::setClean);
    connect(documents_, &Documents::Saved, this, &MainWindow::ShowState);
    connect(documents_, &Documents::RecentChanged, this, &MainWindow::ShowRecent);
    connect(start_, &StartPage::RecentChosen, documents_, &Documents::OpenRecent,
            Qt::QueuedConnection);
}

void MainWindow::ConnectPages() {
    const auto on = [this](QAction* action, auto act) {
        connect(action, &QAction::triggered, this, act);
    };
    on(actions_->firstPage, [this] { TurnTo(1); });
    on(actions_->previousPage, [this] { TurnTo(session_->Page() - 1); });
    on(actions_->nextPage, [this] { TurnTo(session_->Page() + 1); });
    on(actions_->lastPage, [this] { TurnTo(session_->Pages()); });
    on(actions_->goToPage, [this] {
        actions_->pageBox->setFocus();
        actions_->pageBox->selectAll();
    });
    on(actions_->findPage, [this] { pages_->FocusFilter(); });
    on(actions_->findNext, [this] { pages_->Step(1); });
    on(actions_->findPrevious, [this] { pages_->Step(-1); });
    on(actions_->refresh, [this] {
        RefreshLayout(&WindowSession::RefreshOld);
        ListPages();
    });
    connect(actions_->pageBox, &QSpinBox::valueChanged, this, &MainWindow::TurnTo);
    connect(pages_, &PagesDock::ExportWanted, this, [this](int page) { Export(page); });
}

void MainWindow::ConnectView() {
    const auto on = [this](QAction* action, auto act) {
        connect(action, &QAction::triggered, this, act);
    };
    on(actions_->zoomIn, [this] { view_->ZoomIn(); });
    on(actions_->zoomOut, [this] { view_->ZoomOut(); });
    on(actions_->zoomFull, [this] { view_->SetZoom(1); });
    on(actions_->fitPage, [this] { view_->SetFit(PageView::Fit::Page); });
    on(actions_->fitWidth, [this] { view_->SetFit(PageView::Fit::Width); });
    on(actions_->deselect, [this] { Select(nullptr); });
    connect(view_, &PageView::ZoomChanged, this, [this] {
        status_->ShowZoom(view_->Zoom());
        actions_->fitPage->setChecked(view_->FitMode() == PageView::Fit::Page);
        actions_->fitWidth->setChecked(view_->FitMode() == PageView::Fit::Width);
    });
    connect(view_, &PageView::PreviousPageWanted, actions_->previousPage, &QAction::trigger);
    connect(view_, &PageView::NextPageWanted, actions_->nextPage, &QAction::trigger);
    connect(view_, &PageView::Clicked, this, &MainWindow::SelectAt);
    connect(view_, &PageView::PropertiesWanted, actions_->properties, &QAction::trigger);
    connect(view_, &PageView::EscapePressed, actions_->deselect, &QAction::trigger);
}

// The commands that the property page runs to refresh the view.
void MainWindow::AddCommands() {
    auto& commands = session_->Document().TheDesk().Commands();
    commands.Add("CVNLayoutsCmds.RefreshLayout", [this] { RefreshLayout(); });
    commands.Add("CVNLayoutsCmds.RefreshTOC", [this] { ListPages(); });
}

}  // namespace app
