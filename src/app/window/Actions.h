#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QMenu;
class QSpinBox;

namespace app {

/// The actions of the window with their texts, shortcuts and icons, in menus and on a tool bar. The
/// window connects them.
class Actions : public QObject {
public:
    explicit Actions(QMainWindow& window);

    void AddMenus(QMainWindow& window, QAction* showPages);
    void AddToolBar(QMainWindow& window);
    /// The context menu of the page.
    void AddPageMenu(QWidget& page);

    QAction* newDocument;
    QAction* open;
    QAction* save;
    QAction* saveAs;
    QAction* pageSetup;
    QAction* print;
    QAction* exportPages;
    QAction* quit;
    QAction* undo;
    QAction* redo;
    QAction* properties;
    QAction* deselect;
    QAction* findPage;
    QAction* zoomIn;
    QAction* zoomOut;
    QAction* zoomFull;
    QAction* fitPage;
    QAction* fitWidth;
    QAction* firstPage;
    QAction* previousPage;
    QAction* nextPage;
    QAction* lastPage;
    QAction* goToPage;
    QAction* refresh;
    QAction* draft;
    QAction* manual;
    QAction* about;
    QMenu* recent;
    QMenu* zooms;
    QSpinBox* pageBox;

private:
    QAction* Add(const char* name, const char* text, const char* icon, const char* tip,
                 const QList<QKeySequence>& keys = {});
    void AddFileActions();
    void AddPageActions();
    void AddViewActions();
};

}  // namespace app
