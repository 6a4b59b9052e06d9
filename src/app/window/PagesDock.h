#pragma once

#include <QDockWidget>
#include <functional>

#include "app/window/PageFinder.h"
#include "app/window/PageListModel.h"

class QLabel;
class QLineEdit;
class QTimer;
class QTreeView;

namespace app {

/// The list of pages, with a field to find pages by their listings.
class PagesDock : public QDockWidget {
    Q_OBJECT

public:
    explicit PagesDock(QWidget* parent);

    void SetPages(const gazetteer::WorkingResults& results, int count,
                  std::function<QString(int page)> name);
    /// Marks the page that is on show; 0 for none.
    void SetCurrentPage(int page);
    void FocusFilter();

Q_SIGNALS:
    void PageChosen(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Search(const QString& text);
    void ReadOn();
    void ShowCount();
    void TakeFirst();

    QLineEdit* filter_;
    QTreeView* list_;
    QLabel* nothing_;
    PageListModel* model_;
    QTimer* reading_;
    PageFinder finder_;
    int page_ = 0;
    bool marking_ = false;  ///< The list's current row is being set by us.
};

}  // namespace app
