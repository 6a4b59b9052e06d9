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
namespace {

// A null pointer adds a separator.
void Fill(QWidget& place, std::initializer_list<QAction*> actions) {
    for (QAction* action : actions) {
        if (action == nullptr) {
            action = new QAction(&place);
            action->setSeparator(true);
        }
        place.addAction(action);
    }
}

}  // namespace

Actions::Actions(QMainWindow& window)
    : QObject(&window),
      recent(new QMenu("Open &Recent", &window)),
      zooms(new QMenu("&Zoom", &window)),
      pageBox(new QSpinBox(&window)) {
    AddFileActions();
    AddPageActions();
    AddViewActions();
    recent->setObjectName("recentMenu");
    Fill(*zooms, {fitPage, fitWidth, zoomFull, nullptr, zoomIn, zoomOut});
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
                      "Make a document from a table of listings", {QKeySequence::New});
    open = Add("open", "&Open...", "document-open", "Open a document", {QKeySequence::Open});
    save = Add("save", "&Save", "document-save", "Save the document", {QKeySequence::Save});
    saveAs =
        Add("saveAs", "Save &As...", "document-save-as", "Save the document under another name",
            {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S)});
    pageSetup = Add("pageSetup", "Page Set&up...", "",
                    "Set the size of the sheet, the place of the index, and the texts beside it",
                    {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P)});
    print = Add("print", "&Print...", "document-print", "Print pages at their real size",
                {QKeySequence::Print});
    exportPages = Add("exportPages", "&Export...", "document-export",
                      "Write pages to PDF, PNG or SVG files", {QKeySequence(Qt::CTRL | Qt::Key_E)});
    quit = Add("quit", "&Quit", "application-exit", "Close the window", {QKeySequence::Quit});
    quit->setMenuRole(QAction::QuitRole);
    properties =
        Add("properties", "&Properties...", "document-properties",
            "Edit the properties of the selected element",
            {QKeySequence(Qt::ALT | Qt::Key_Return), QKeySequence(Qt::ALT | Qt::Key_Enter)});
    deselect = Add("deselect", "&Deselect", "", "Select nothing");
    undo = Add("undo", "&Undo", "", "Take back the last change", {QKeySequence::Undo});
    redo = Add("redo", "&Redo", "", "Make the change again that was taken back",
               {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)});
    findPage = Add("findPage", "&Find Page by Listing...", "edit-find",
                   "Find the pages on which a listing stands", {QKeySequence::Find});
    findNext = Add("findNext", "Find &Next", "", "Go to the next listing found",
                   {QKeySequence(Qt::Key_F3)});
    findPrevious = Add("findPrevious", "Find Pre&vious", "", "Go to the listing found before",
                       {QKeySequence(Qt::SHIFT | Qt::Key_F3)});
    manual = Add("manual", "&Manual", "", "Show the manual");
    manual->setShortcut(QKeySequence::HelpContents);
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

void Actions::AddMenus(QMainWindow& window, std::initializer_list<QAction*> docks) {
    QMenuBar& bar = *window.menuBar();
    Fill(*bar.addMenu("&File"), {newDocument, open, recent->menuAction(), nullptr, save, saveAs,
                                 nullptr, pageSetup, print, exportPages, nullptr, quit});
    Fill(*bar.addMenu("&Edit"),
         {undo, redo, nullptr, properties, deselect, nullptr, findPage, findNext, findPrevious});
    QMenu& view = *bar.addMenu("&View");
    Fill(view, {zoomIn, zoomOut, zoomFull, nullptr, fitPage, fitWidth, nullptr});
    Fill(view, docks);
    Fill(*bar.addMenu("&Page"),
         {firstPage, previousPage, nextPage, lastPage, goToPage, nullptr, refresh, draft});
    Fill(*bar.addMenu("&Help"), {manual, about});
}

void Actions::AddPageMenu(QWidget& page) {
    page.setContextMenuPolicy(Qt::ActionsContextMenu);
    Fill(page, {properties, draft, nullptr, zoomIn, zoomOut, zoomFull, fitPage, fitWidth});
}

void Actions::AddToolBar(QMainWindow& window) {
    QToolBar* bar = window.addToolBar("Tools");
    bar->setObjectName("toolBar");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    Fill(*bar,
         {newDocument, open, save, nullptr, firstPage, previousPage, nextPage, lastPage, nullptr,
          zoomOut, zoomIn, fitPage, fitWidth, nullptr, draft, refresh, properties, exportPages});
    bar->insertWidget(nextPage, pageBox);
}

}  // namespace app
