#include "app/window/Actions.h"

#include <QAction>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QToolBar>

#include "app/window/Icons.h"

namespace app {

Actions::Actions(QMainWindow& window)
    : QObject(&window),
      recent(new QMenu("Open &Recent", &window)),
      zooms(new QMenu("&Zoom", &window)),
      pageBox(new QSpinBox(&window)) {
    AddFileActions();
    AddPageActions();
    AddViewActions();
    recent->setObjectName("recentMenu");
    zooms->addActions({fitPage, fitWidth, zoomFull});
    zooms->addSeparator();
    zooms->addActions({zoomIn, zoomOut});
    pageBox->setObjectName("pageBox");
    pageBox->setAccessibleName("Page");
    pageBox->setToolTip("Page on show");
    pageBox->setKeyboardTracking(false);
    pageBox->setAlignment(Qt::AlignRight);
    pageBox->setButtonSymbols(QAbstractSpinBox::NoButtons);
}

QAction* Actions::Add(const char* name, const char* text, const char* icon, const char* tip,
                      const QList<QKeySequence>& keys) {
    auto* action = new QAction(text, this);
    action->setObjectName(name);
    action->setStatusTip(tip);
    action->setShortcuts(keys);
    if (*icon != 0) action->setIcon(ThemeIcon(icon));
    const QString key =
        keys.isEmpty() ? "" : " (" + keys[0].toString(QKeySequence::NativeText) + ')';
    action->setToolTip(tip + key);
    return action;
}

void Actions::AddFileActions() {
    newDocument = Add("newDocument", "&New from Listing Table...", "document-new",
                      "Make a document from a dBase table of listings", {QKeySequence::New});
    open = Add("open", "&Open...", "document-open", "Open a document", {QKeySequence::Open});
    save = Add("save", "&Save", "document-save", "Save the document", {QKeySequence::Save});
    saveAs =
        Add("saveAs", "Save &As...", "document-save-as", "Save the document under another name",
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)});
    exportPages = Add("exportPages", "&Export...", "document-export",
                      "Write pages to PDF, PNG or SVG files", {QKeySequence(Qt::CTRL | Qt::Key_E)});
    quit = Add("quit", "&Quit", "application-exit", "Close the window", {QKeySequence::Quit});
    quit->setMenuRole(QAction::QuitRole);
    properties =
        Add("properties", "&Properties...", "document-properties",
            "Edit the properties of the selected element",
            {QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)});
    deselect = Add("deselect", "&Deselect", "", "Select nothing");
    findPage = Add("findPage", "&Find Page by Listing...", "edit-find",
                   "Find the pages on which a listing stands", {QKeySequence::Find});
    about = Add("about", "&About", "", "About this program");
    about->setMenuRole(QAction::AboutRole);
}

void Actions::AddPageActions() {
    firstPage = Add("firstPage", "&First Page", "go-first", "Show the first page",
                    {QKeySequence(Qt::CTRL | Qt::Key_Home)});
    previousPage = Add("previousPage", "&Previous Page", "go-previous", "Show the page before",
                       {QKeySequence(Qt::CTRL | Qt::Key_PageUp)});
    nextPage = Add("nextPage", "&Next Page", "go-next", "Show the next page",
                   {QKeySequence(Qt::CTRL | Qt::Key_PageDown)});
    lastPage = Add("lastPage", "&Last Page", "go-last", "Show the last page",
                   {QKeySequence(Qt::CTRL | Qt::Key_End)});
    goToPage = Add("goToPage", "&Go to Page", "", "Enter the number of a page",
                   {QKeySequence(Qt::CTRL | Qt::Key_G)});
    refresh =
        Add("refresh", "&Refresh", "view-refresh", "Draw the page anew", {QKeySequence::Refresh});
    draft = Add("draft", "&Draft", "draft", "Show an empty frame in place of the page",
                {QKeySequence(Qt::CTRL | Qt::Key_D)});
    draft->setCheckable(true);
}

void Actions::AddViewActions() {
    zoomIn = Add("zoomIn", "Zoom &In", "zoom-in", "Show the page larger",
                 {QKeySequence::ZoomIn, QKeySequence(Qt::CTRL | Qt::Key_Equal)});
    zoomOut =
        Add("zoomOut", "Zoom &Out", "zoom-out", "Show the page smaller", {QKeySequence::ZoomOut});
    zoomFull = Add("zoomFull", "&Actual Size", "zoom-original",
                   "Show the page as large as on paper", {QKeySequence(Qt::CTRL | Qt::Key_1)});
    fitPage = Add("fitPage", "Fit &Page", "zoom-fit-best", "Show the whole page",
                  {QKeySequence(Qt::CTRL | Qt::Key_0)});
    fitWidth = Add("fitWidth", "Fit &Width", "zoom-fit-width", "Show the whole width of the page",
                   {QKeySequence(Qt::CTRL | Qt::Key_2)});
    fitPage->setCheckable(true);
    fitWidth->setCheckable(true);
}

void Actions::AddMenus(QMainWindow& window, QAction* showPages) {
    QMenu* file = window.menuBar()->addMenu("&File");
    file->addActions({newDocument, open});
    file->addMenu(recent);
    file->addSeparator();
    file->addActions({save, saveAs});
    file->addSeparator();
    file->addAction(exportPages);
    file->addSeparator();
    file->addAction(quit);

    QMenu* edit = window.menuBar()->addMenu("&Edit");
    edit->addActions({properties, deselect});
    edit->addSeparator();
    edit->addAction(findPage);

    QMenu* view = window.menuBar()->addMenu("&View");
    view->addActions({zoomIn, zoomOut, zoomFull});
    view->addSeparator();
    view->addActions({fitPage, fitWidth});
    view->addSeparator();
    view->addAction(showPages);

    QMenu* page = window.menuBar()->addMenu("&Page");
    page->addActions({firstPage, previousPage, nextPage, lastPage, goToPage});
    page->addSeparator();
    page->addActions({refresh, draft});

    window.menuBar()->addMenu("&Help")->addAction(about);
}

void Actions::AddToolBar(QMainWindow& window) {
    QToolBar* bar = window.addToolBar("Tools");
    bar->setObjectName("toolBar");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->addActions({newDocument, open, save});
    bar->addSeparator();
    bar->addActions({firstPage, previousPage});
    bar->addWidget(pageBox);
    bar->addActions({nextPage, lastPage});
    bar->addSeparator();
    bar->addActions({zoomOut, zoomIn, fitPage, fitWidth});
    bar->addSeparator();
    bar->addActions({draft, refresh, properties, exportPages});
}

}  // namespace app
