#pragma once

#include <QDockWidget>
#include <functional>

#include "app/window/PageFinder.h"

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

    /// Lists pages from 1 to the count; the results are what the field searches.
    void SetPages(const gazetteer::WorkingResults& results, int count,
                  std::function<QString(int page)> name);
    /// Selects the row of the page on show; 0 for none.
    void SetCurrentPage(int page);
    void FocusFilter();

Q_SIGNALS:
    void PageChosen(int page);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class Model;

    void Search(const QString& text);
    void ReadOn();
    void TakeFirst();

    QLineEdit* filter_;
    QTreeView* list_;
    QLabel* nothing_;
    Model* model_;
    QTimer* reading_;
    PageFinder finder_;
    int page_ = 0;
    bool marking_ = false;  ///< The current row changes without a choice of the user.
};

}  // namespace app
