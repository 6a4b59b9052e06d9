#include "app/window/MainWindow.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QSpinBox>
#include <QStackedWidget>
#include <utility>

#include "app/window/Actions.h"
#include "app/window/Dialogs.h"
#include "app/window/Documents.h"
#include "app/window/FindingsDock.h"
#include "app/window/Icons.h"
#include "app/window/NoticeBar.h"
#include "app/window/PageView.h"
#include "app/window/PagesDock.h"
#include "app/window/StartPage.h"
#include "app/window/StatusPanes.h"
#include "app/window/WaitPointer.h"
#include "desk/window/DialogParent.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr char kGeometry[] = "window/geometry";
constexpr char kState[] = "window/state";

// Returns the path if exactly one local file is dragged, else an empty text.
QString DraggedFile(const QMimeData& data) {
    const auto urls = data.urls();
    return urls.size() == 1 && urls[0].isLocalFile() ? urls[0].toLocalFile() : QString();
}

}  // namespace

MainWindow::MainWindow(const std::string& locale)
    : view_(new PageView(this)),
      notices_(new NoticeBar(this)),
      pages_(new PagesDock(this)),
      findings_(new FindingsDock(this)),
      actions_(new Actions(*this)),
      stack_(new QStackedWidget(this)) {
    status_ = new StatusPanes(actions_->zooms, this);
    control_ = new RunControl(*this);
    session_ = std::make_unique<WindowSession>(DeskOptionsFor(locale), *control_);
    documents_ = new Documents(*session_, *this);
    start_ = new StartPage({actions_->open, actions_->newDocument}, this);
    Arrange();
    ConnectFiles();
    ConnectPages();
    ConnectView();
    ConnectEdits();
    ConnectFindings();
    AddCommands();
    ShowRecent();
    ShowState();
    RestorePlace();
}

MainWindow::~MainWindow() {
    history_.disconnect(this);
    findings_->disconnect(this);  // It is hidden once more when the window goes.
}

void MainWindow::RestorePlace() {
    const QSettings settings;
    if (!restoreGeometry(settings.value(kGeometry).toByteArray()))
        desk::ResizeToScreen(*this, {1180, 860});
    // Nothing can be listed before a document is open.
    for (QDockWidget* const dock : std::initializer_list<QDockWidget*>{pages_, findings_}) {
        dock->hide();
        dock->toggleViewAction()->setEnabled(false);
    }
}

// Shows the page list for the first document, and the docks where the settings place them.
void MainWindow::ShowDocks() {
    if (pages_->toggleViewAction()->isEnabled()) return;
    pages_->toggleViewAction()->setEnabled(true);
    findings_->toggleViewAction()->setEnabled(true);
    pages_->show();
    restoreState(QSettings().value(kState).toByteArray());
}

void MainWindow::Open(const QString& path) {
    documents_->Open(path);
}

void MainWindow::TakeDocument() {
    selected_ = nullptr;
    ShowDocks();
    notices_->Show({}, false);
    stack_->setCurrentIndex(1);
    view_->SetFit(PageView::Fit::Page);
    RecordPage();
    ListPages();
    ShowState();
    ForgetHistory();
    status_->ShowResult(desk::ToQt(session_->Summary()));
    view_->setFocus();
}

void MainWindow::RefreshLayout(void (WindowSession::*refresh)()) {
    {
        const WaitPointer wait;
        (*session_.*refresh)();
    }
    RecordPage();
    ShowState();
    status_->ShowResult(desk::ToQt(session_->Summary()));
}

void MainWindow::ShowCancelled() {
    RecordPage();
    ListPages();
    ShowState();
    status_->ShowResult("Cancelled");
}

void MainWindow::ListPages() {
    pages_->SetPages(session_->Document().Manager().Working(), session_->Pages(), [this](int page) {
        return desk::ToQt(session_->PageName(page)).simplified();
    });
    ShowPage();
}

void MainWindow::RecordPage() {
    recordPending_ = false;
    if (!session_->HasDocument()) return;
    auto& desk = session_->Document().TheDesk();
    view_->SetPicture(std::make_shared<PagePicture>(desk.CurrentDocument(), *desk.Text()));
    ShowSelection();
    ShowMarks();
}

// Queued, so that only the last of several pages drawn in a row is recorded.
void MainWindow::RecordPageSoon() {
    if (std::exchange(recordPending_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (recordPending_ && !exporting_ && !control_->Running()) RecordPage();
        },
        Qt::QueuedConnection);
}

void MainWindow::ShowState() {
    const bool there = session_->HasDocument();
    const bool gazetteer = session_->Document().Gazetteer() != nullptr;
    setWindowTitle(there ? documents_->Name() + "[*] - Gazetteer" : "Gazetteer");
    setWindowFilePath(session_->OnDisk() ? desk::ToQt(session_->Path()) : QString());
    setWindowModified(session_->Modified());
    stack_->setCurrentIndex(there ? 1 : 0);
    for (QAction* const action :
         {actions_->save, actions_->saveAs, actions_->pageSetup, actions_->zoomIn,
          actions_->zoomOut, actions_->zoomFull, actions_->fitPage, actions_->fitWidth})
        action->setEnabled(there);
    for (QAction* const action : {actions_->refresh, actions_->draft})
        action->setEnabled(gazetteer);
    actions_->draft->setChecked(session_->InDraft());
    ShowNotices();
    ShowSelection();
    ShowPage();
}

void MainWindow::ShowPage() {
    const int page = session_->Page();
    const int count = session_->Pages();
    QSpinBox& box = *actions_->pageBox;
    const QSignalBlocker quiet(box);
    box.setEnabled(count > 0);
    box.setRange(count > 0 ? 1 : 0, count);
    box.setSuffix(count > 0 ? QString(" of %1").arg(count) : QString());
    box.setSpecialValueText(count > 0 ? QString() : QString("No page"));
    box.setValue(page);
    for (QAction* const action : {actions_->firstPage, actions_->previousPage})
        action->setEnabled(page > 1);
    for (QAction* const action : {actions_->nextPage, actions_->lastPage})
        action->setEnabled(page > 0 && page < count);
    for (QAction* const action : {actions_->goToPage, actions_->findPage, actions_->findNext,
                                  actions_->findPrevious, actions_->print, actions_->exportPages})
        action->setEnabled(count > 0);
    const QString draft = session_->InDraft() ? ", draft" : "";
    status_->ShowPage(count > 0 ? QString("Page %1 of %2").arg(page).arg(count) + draft
                                : QString());
    pages_->SetCurrentPage(page);
}

void MainWindow::ShowRecent() {
    const QStringList paths = Documents::Recent();
    start_->ShowRecent(paths);
    QMenu& menu = *actions_->recent;
    menu.clear();
    menu.setEnabled(!paths.isEmpty());
    for (const QString& path : paths)
        menu.addAction(desk::WithoutMnemonic(path), documents_,
                       [this, path] { documents_->OpenRecent(path); });
    menu.addSeparator();
    // Queued, because a menu cannot be cleared while it runs one of its actions.
    menu.addAction("&Clear List", documents_, &Documents::ClearRecent, Qt::QueuedConnection);
}

void MainWindow::TurnTo(int page) {
    if (page == session_->Page() || page < 1 || page > session_->Pages()) return;
    session_->TurnTo(page);
    RecordPage();
    ShowPage();
}

void MainWindow::SelectAt(QPointF inches) {
    const double height = session_->Document().TheDesk().CurrentDocument().pageHeight;
    Select(session_->ElementAt(inches.x(), height - inches.y()));
}

void MainWindow::ChooseFrame(const host::Ref<host::IHostElement>& element) {
    const auto before = session_->Document().Gazetteer();
    if (element) session_->Choose(element);
    if (session_->Document().Gazetteer() == before) return;
    ListPages();
    ShowState();
}

void MainWindow::Select(const host::Ref<host::IHostElement>& element) {
    selected_ = element;
    ChooseFrame(element);
    ShowState();
}

void MainWindow::ShowSelection() {
    const auto bounds = selected_ ? session_->BoundsOf(selected_) : nullptr;
    std::optional<QRectF> frame;
    if (bounds)
        frame = QRectF(bounds->XMin(),
                       session_->Document().TheDesk().CurrentDocument().pageHeight - bounds->YMax(),
                       bounds->Width(), bounds->Height());
    view_->SetSelection(frame);
    actions_->deselect->setEnabled(selected_ != nullptr);
    actions_->properties->setEnabled(selected_ || session_->Document().Gazetteer());
}

void MainWindow::Export(std::optional<int> onlyPage) {
    DrawPages([&] { return ExportPages(*session_, *this, onlyPage); });
}

void MainWindow::DrawPages(const std::function<QString()>& job) {
    exporting_ = true;
    view_->setUpdatesEnabled(false);
    const QString done = job();
    view_->setUpdatesEnabled(true);
    exporting_ = false;
    RecordPage();
    ShowState();
    if (!done.isEmpty()) status_->ShowResult(done);
}

void MainWindow::ShowAbout() {
    QMessageBox box(this);
    box.setWindowTitle("About");
    box.setIconPixmap(ProgramIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
    box.setText("Gazetteer " GAZETTEER_VERSION);
    box.setInformativeText("Makes the printed index of a map book from a table of listings.");
    box.exec();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!documents_->MayLeave()) return event->ignore();
    QSettings settings;
    settings.setValue(kGeometry, saveGeometry());
    if (session_->HasDocument()) settings.setValue(kState, saveState());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DraggedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QString path = DraggedFile(*event->mimeData());
    event->acceptProposedAction();
    // Queued, so that the source of the drag does not wait for dialogs here.
    QMetaObject::invokeMethod(
        this, [this, path] { Open(path); }, Qt::QueuedConnection);
}

}  // namespace app
