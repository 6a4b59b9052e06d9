#include "app/window/PagesDock.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>
#include <utility>

#include "app/window/Icons.h"

namespace app {

PagesDock::PagesDock(QWidget* parent)
    : QDockWidget("Pages", parent),
      filter_(new QLineEdit),
      list_(new QTreeView),
      nothing_(new QLabel),
      model_(new PageListModel(this)),
      reading_(new QTimer(this)) {
    setObjectName("pagesDock");
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    auto* inside = new QWidget(this);
    auto* layout = new QVBoxLayout(inside);
    layout->addWidget(filter_);
    layout->addWidget(list_, 1);
    layout->addWidget(nothing_);
    setWidget(inside);

    filter_->setObjectName("pageFilter");
    filter_->setPlaceholderText("Find a listing or page number");
    filter_->setToolTip("Show only pages with a listing that holds this text");
    filter_->setAccessibleName("Find pages by listing");
    filter_->setClearButtonEnabled(true);
    filter_->addAction(ThemeIcon("edit-find"), QLineEdit::LeadingPosition);
    filter_->installEventFilter(this);

    list_->setObjectName("pageList");
    list_->setAccessibleName("Pages");
    list_->setModel(model_);
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setAlternatingRowColors(true);
    list_->setTextElideMode(Qt::ElideRight);
    list_->header()->setStretchLastSection(true);
    list_->header()->setSectionsMovable(false);
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setWordWrap(true);
    nothing_->hide();

    connect(reading_, &QTimer::timeout, this, &PagesDock::ReadOn);
    connect(filter_, &QLineEdit::textChanged, this, &PagesDock::Search);
    connect(filter_, &QLineEdit::returnPressed, this, &PagesDock::TakeFirst);
    connect(list_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (!marking_ && current.isValid())
                    Q_EMIT PageChosen(model_->PageAt(current.row()));
            });
}

void PagesDock::SetPages(const gazetteer::WorkingResults& results, int count,
                         std::function<QString(int page)> name) {
    finder_.SetResults(results);
    reading_->start();
    const bool before = std::exchange(marking_, true);
    model_->SetPages(count, std::move(name));
    marking_ = before;
    // Room for the widest page number.
    const int width = list_->fontMetrics().horizontalAdvance(QString::number(count) + "  Page");
    list_->header()->resizeSection(0, width);
    Search(filter_->text());
}

void PagesDock::SetCurrentPage(int page) {
    page_ = page;
    const int row = model_->RowOf(page);
    const bool before = std::exchange(marking_, true);
    if (row < 0)
        list_->setCurrentIndex({});
    else
        list_->setCurrentIndex(model_->index(row, 0));
    marking_ = before;
}

void PagesDock::FocusFilter() {
    show();
    filter_->setFocus();
    filter_->selectAll();
}

void PagesDock::Search(const QString& text) {
    const bool before = std::exchange(marking_, true);
    if (text.trimmed().isEmpty())
        model_->ShowOnly({});
    else
        model_->ShowOnly(finder_.Find(text));
    marking_ = before;
    SetCurrentPage(page_);
    ShowCount();
}

// Listings are made ready for a search little by little, while there is nothing else to do.
void PagesDock::ReadOn() {
    constexpr std::chrono::milliseconds kSlice{10};
    if (finder_.ReadOn(kSlice)) return;
    reading_->stop();
    // Whoever was quicker sees the rest now.
    if (!filter_->text().trimmed().isEmpty()) Search(filter_->text());
}

void PagesDock::ShowCount() {
    const bool searched = !filter_->text().trimmed().isEmpty();
    nothing_->setText("No page has such a listing.");
    nothing_->setVisible(searched && model_->rowCount() == 0 && !reading_->isActive());
}

void PagesDock::TakeFirst() {
    if (model_->rowCount() > 0 && !list_->currentIndex().isValid())
        list_->setCurrentIndex(model_->index(0, 0));
}

// The arrow keys lead from the field into the list, and Escape shows all pages again.
bool PagesDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched == filter_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape) filter_->clear();
        if (key == Qt::Key_Down) {
            TakeFirst();
            list_->setFocus();
        }
        if (key == Qt::Key_Escape || key == Qt::Key_Down) return true;
    }
    return QDockWidget::eventFilter(watched, event);
}

}  // namespace app
