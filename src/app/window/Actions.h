#pragma once

#include <QObject>

class QAction;
class QMainWindow;
class QMenu;
class QSpinBox;

namespace app {

/// What can be done in the window, with its texts, keys and icons, in menus and on a tool bar. What
/// each does is for others to connect.
class Actions : public QObject {
public:
    explicit Actions(QMainWindow& window);

    void AddMenus(QMainWindow& window, QAction* showPages);
    void AddToolBar(QMainWindow& window);
    /// A menu of the zooms.
    QMenu* ZoomMenu() const { return zooms; }

    QAction* newDocument;
    QAction* open;
    QAction* save;
    QAction* saveAs;
    QAction* exportPages;
    QAction* quit;
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
