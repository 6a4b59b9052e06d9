#pragma once

#include <QDockWidget>
#include <functional>

#include "app/window/PageFinder.h"

class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;

namespace app {

/// The list of pages, with a field to search them by their listings.
class PagesDock : public QDockWidget {
    Q_OBJECT

public:
    explicit PagesDock(QWidget* parent);

    /// Lists the pages 1 to count; the field searches the results.
    void SetPages(const gazetteer::WorkingResults& results, int count,
                  std::function<QString(int page)> name);
    /// Selects the row of a page; 0: none.
    void SetCurrentPage(int page);
    void FocusFilter();

Q_SIGNALS:
    void PageChosen(int page);
    void ExportWanted(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Model;

    void Search(const QString& text);
    void ReadOn();
    void SelectFirst();
    bool FilterKey(int key);
    void ShowMenu(const QContextMenuEvent& event);

    QLineEdit* filter_;
    QTreeView* list_;
    QLabel* nothing_;
    Model* model_;
    QTimer* reading_;
    PageFinder finder_;
    int page_ = 0;
    bool marking_ = false;  ///< The current row is being changed by code, not by the user.
};

}  // namespace app
