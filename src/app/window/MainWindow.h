#pragma once

#include <QMainWindow>
#include <QUndoStack>
#include <memory>

#include "app/document/ListingPlaces.h"
#include "app/document/RunProgress.h"
#include "app/window/ElementPages.h"
#include "app/window/WindowSession.h"

class QStackedWidget;

namespace app {

class Actions;
class Documents;
class FindingsDock;
class NoticeBar;
class PagesDock;
class PageView;
class RunControl;
class StartPage;
class StatusPanes;
struct PageMark;

/// The main window: a layout page with its gazetteer, the list of pages, and their actions.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /// The locale is a name as for IcuLocale. Throws for an unknown one.
    explicit MainWindow(const std::string& locale);
    ~MainWindow() override;

    /// Opens a document, or the dialog for a new one if the path is a listing table.
    void Open(const QString& path);
    WindowSession& TheSession() { return *session_; }
    PageView& View() { return *view_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    desk::DeskOptions DeskOptionsFor(const std::string& locale);
    void Arrange();
    void ConnectFiles();
    void ConnectPages();
    void ConnectView();
    void ConnectEdits();
    void ConnectFindings();
    void AddCommands();
    void RestorePlace();

    void ShowProgress(const std::optional<RunProgress::Shown>& shown);
    void ShowDocks();
    void TakeDocument();
    /// Refreshes the session by one of its ways, and shows it.
    void RefreshLayout(void (WindowSession::*refresh)() = &WindowSession::Refresh);
    void ShowCancelled();
    void ListPages();
    void RecordPage();
    void RecordPageSoon();
    void ShowState();
    void ShowPage();
    void ShowRecent();
    void ShowNotices();
    void ShowMarks();
    void MarkFindings(const std::vector<DrawnCell>& cells, double sheetHeight,
                      std::vector<PageMark>& marks);
    void GoToFinding();
    void OpenFinding();
    void TurnTo(int page);
    void ShowHistory();
    void ForgetHistory();
    /// Makes a step of the history of an edit, unless it changed nothing.
    void RecordEdit(const QString& text, DocumentState before);
    void ExchangeState(DocumentState& state);
    void SetDraft(bool draft);
    void SelectAt(QPointF inches);
    void ChooseFrame(const host::Ref<host::IHostElement>& element);
    void Select(const host::Ref<host::IHostElement>& element);
    void ShowSelection();
    void ShowProperties();
    void ShowPageSetup();
    void Export(std::optional<int> onlyPage);
    /// Does a job that draws other pages in turn and returns a sentence about its result.
    void DrawPages(const std::function<QString()>& job);
    void ShowAbout();

    StatusPanes* status_ = nullptr;
    RunControl* control_ = nullptr;
    RunProgress progress_;
    PageView* view_;
    NoticeBar* notices_;
    PagesDock* pages_;
    FindingsDock* findings_;
    Actions* actions_;
    StartPage* start_ = nullptr;
    QStackedWidget* stack_;
    std::unique_ptr<WindowSession> session_;
    QUndoStack history_;
    Documents* documents_ = nullptr;
    ElementPages elementPages_;
    host::Ref<host::IHostElement> selected_;
    ListingPlace found_;  ///< Of the current finding.
    bool recordPending_ = false;
    bool exporting_ = false;
};

}  // namespace app
