#pragma once

#include <QDockWidget>
#include <functional>
#include <string>
#include <vector>

#include "app/window/PageFinder.h"

class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;

namespace app {

class PagesModel;

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
    /// Moves to the next hit of the search, or with -1 to the one before; from the last one to the
    /// first.
    void Step(int by);
    /// Row keys of the hits on a page, and of the current one.
    std::vector<std::string> HitsOn(int page) const;
    std::string CurrentHit() const;

Q_SIGNALS:
    void PageChosen(int page);
    /// The search found other listings.
    void HitsChanged();
    void ExportWanted(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Search(const QString& text);
    void ReadOn();
    void SelectFirst();
    bool FilterKey(int key);
    void ShowMenu(const QContextMenuEvent& event);

    QLineEdit* filter_;
    QTreeView* list_;
    QLabel* nothing_;
    PagesModel* model_;
    QTimer* reading_;
    PageFinder finder_;
    int page_ = 0;
    bool marking_ = false;  ///< The current row is being changed by code, not by the user.
};

}  // namespace app
