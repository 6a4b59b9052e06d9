#include <QFileInfo>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/window/Actions.h"
#include "app/window/Documents.h"
#include "app/window/Icons.h"
#include "app/window/MainWindow.h"
#include "app/window/NoticeBar.h"
#include "app/window/PageView.h"
#include "app/window/PagesDock.h"
#include "app/window/StartPage.h"
#include "app/window/StatusPanes.h"
#include "desk/window/ExpressionEditor.h"
#include "desk/window/ObjectDialog.h"
#include "desk/window/SymbolDialog.h"
#include "desk/window/WidgetText.h"
#include "desk/window/WindowDialogs.h"

/// How the parts of the window are put together: what stands where, and who is told of what.
namespace app {

desk::DeskOptions MainWindow::DeskOptionsFor(const std::string& locale) {
    const desk::ParentWidget self = [this] { return this; };
    desk::DeskOptions options;
    options.locale = locale;
    options.dialogs = std::make_shared<desk::WindowDialogs>(self);
    options.listeners.statusText = [this](std::int32_t pane, const std::string& text) {
        status_->ShowRunText(pane, desk::ToQt(text));
    };
    options.listeners.animation = [this](desk::AnimationStep step) {
        status_->ShowAnimation(step);
    };
    options.listeners.refresh = [this] { TakePictureSoon(); };
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
    actions_->AddMenus(*this, pages_->toggleViewAction());
    actions_->AddToolBar(*this);
    addActions({actions_->goToPage, actions_->findPage});
}

void MainWindow::ConnectFiles() {
    connect(actions_->newDocument, &QAction::triggered, documents_, [this] { documents_->New(); });
    connect(actions_->open, &QAction::triggered, documents_, [this] { documents_->Open(); });
    connect(actions_->save, &QAction::triggered, documents_, &Documents::Save);
    connect(actions_->saveAs, &QAction::triggered, documents_, &Documents::SaveAs);
    connect(actions_->exportPages, &QAction::triggered, this, &MainWindow::Export);
    connect(actions_->quit, &QAction::triggered, this, &QWidget::close);
    connect(actions_->about, &QAction::triggered, this, &MainWindow::ShowAbout);
    connect(documents_, &Documents::Replaced, this, &MainWindow::TakeDocument);
    connect(documents_, &Documents::Saved, this, &MainWindow::ShowState);
    connect(documents_, &Documents::RecentChanged, this, &MainWindow::ShowRecent);
    connect(start_, &StartPage::RecentChosen, documents_, &Documents::OpenRecent,
            Qt::QueuedConnection);
}

void MainWindow::ConnectPages() {
    connect(actions_->firstPage, &QAction::triggered, this, [this] { TurnTo(1); });
    connect(actions_->previousPage, &QAction::triggered, this,
            [this] { TurnTo(session_->Page() - 1); });
    connect(actions_->nextPage, &QAction::triggered, this,
            [this] { TurnTo(session_->Page() + 1); });
    connect(actions_->lastPage, &QAction::triggered, this, [this] { TurnTo(session_->Pages()); });
    connect(actions_->goToPage, &QAction::triggered, this, [this] {
        actions_->pageBox->setFocus();
        actions_->pageBox->selectAll();
    });
    connect(actions_->pageBox, &QSpinBox::valueChanged, this, &MainWindow::TurnTo);
    connect(pages_, &PagesDock::PageChosen, this, &MainWindow::TurnTo);
    connect(actions_->findPage, &QAction::triggered, pages_, &PagesDock::FocusFilter);
    connect(actions_->refresh, &QAction::triggered, this, [this] {
        RefreshLayout();
        ListPages();
    });
    connect(actions_->draft, &QAction::triggered, this, &MainWindow::SetDraft);
}

void MainWindow::ConnectView() {
    connect(actions_->zoomIn, &QAction::triggered, view_, &PageView::ZoomIn);
    connect(actions_->zoomOut, &QAction::triggered, view_, &PageView::ZoomOut);
    connect(actions_->zoomFull, &QAction::triggered, view_, [this] { view_->SetZoom(1); });
    connect(actions_->fitPage, &QAction::triggered, view_,
            [this] { view_->SetFit(PageView::Fit::Page); });
    connect(actions_->fitWidth, &QAction::triggered, view_,
            [this] { view_->SetFit(PageView::Fit::Width); });
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
    connect(actions_->deselect, &QAction::triggered, this, [this] { Select(nullptr); });
    connect(actions_->properties, &QAction::triggered, this, &MainWindow::ShowProperties);
}

// The commands by which others ask for a refresh.
void MainWindow::AddCommands() {
    auto& commands = session_->Document().TheDesk().Commands();
    commands.Add("CVNLayoutsCmds.RefreshLayout", [this] { RefreshLayout(); });
    commands.Add("CVNLayoutsCmds.RefreshTOC", [this] { ListPages(); });
}

}  // namespace app
