#include "app/window/PagesDock.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "app/window/Icons.h"
#include "app/window/PagesModel.h"

namespace app {
namespace {

// Whether a key with Ctrl or Alt is one that edits the text of a field now. The field takes others
// too, such as Ctrl+E, which are shortcuts of the window.
bool EditsText(const QKeyEvent& event, const QLineEdit& field) {
    if (event.matches(QKeySequence::Undo)) return field.isUndoAvailable();
    if (event.matches(QKeySequence::Redo)) return field.isRedoAvailable();
    static constexpr std::array kEdits{QKeySequence::Copy,
                                       QKeySequence::Cut,
                                       QKeySequence::Paste,
                                       QKeySequence::SelectAll,
                                       QKeySequence::MoveToNextWord,
                                       QKeySequence::MoveToPreviousWord,
                                       QKeySequence::SelectNextWord,
                                       QKeySequence::SelectPreviousWord,
                                       QKeySequence::DeleteStartOfWord,
                                       QKeySequence::DeleteEndOfWord};
    return std::ranges::any_of(kEdits, [&](auto edit) { return event.matches(edit); });
}

}  // namespace

PagesDock::PagesDock(QWidget* parent)
    : QDockWidget("Pages", parent),
      filter_(new QLineEdit),
      list_(new QTreeView),
      nothing_(new QLabel("No page has such a listing.")),
      model_(new PagesModel(this)),
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
    filter_->setToolTip("List the places of all listings that hold this text");
    filter_->setAccessibleName("Find pages by listing");
    filter_->setClearButtonEnabled(true);
    filter_->addAction(ThemeIcon("edit-find"), QLineEdit::LeadingPosition);
    filter_->installEventFilter(this);

    list_->setObjectName("pageList");
    list_->installEventFilter(this);
    list_->viewport()->installEventFilter(this);
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
    connect(filter_, &QLineEdit::returnPressed, this, &PagesDock::SelectFirst);
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
    const QScopedValueRollback marking(marking_, true);
    model_->SetPages(count, std::move(name));
    // Room for the widest page number.
    const int width = list_->fontMetrics().horizontalAdvance(QString::number(count) + "  Page");
    list_->header()->resizeSection(0, width);
    Search(filter_->text());
}

void PagesDock::SetCurrentPage(int page) {
    page_ = page;
    // Of several hits on the page, the one chosen stays chosen.
    const QModelIndex current = list_->currentIndex();
    if (current.isValid() && model_->PageAt(current.row()) == page) return;
    const QScopedValueRollback marking(marking_, true);
    // The row -1 gives an invalid index, which clears the current row.
    list_->setCurrentIndex(model_->index(model_->RowOf(page), 0));
}

void PagesDock::FocusFilter() {
    show();
    filter_->setFocus();
    filter_->selectAll();
}

void PagesDock::Step(int by) {
    const int count = model_->rowCount();
    if (model_->Hits() == nullptr || count == 0) return FocusFilter();
    const QModelIndex current = list_->currentIndex();
    const int from = current.isValid() ? current.row() : by > 0 ? -1 : 0;
    const QModelIndex next = model_->index((from + by + count) % count, 0);
    // The only hit can be out of view.
    if (next.row() == current.row()) return Q_EMIT PageChosen(model_->PageAt(next.row()));
    list_->setCurrentIndex(next);
}

std::vector<std::string> PagesDock::HitsOn(int page) const {
    std::vector<std::string> rows;
    if (model_->Hits() == nullptr) return rows;
    for (const PageHit& hit : std::ranges::equal_range(*model_->Hits(), page, {}, &PageHit::page))
        if (!hit.rowKey.empty()) rows.push_back(hit.rowKey);
    return rows;
}

std::string PagesDock::CurrentHit() const {
    const QModelIndex current = list_->currentIndex();
    const bool hit = model_->Hits() != nullptr && current.isValid();
    return hit ? (*model_->Hits())[static_cast<std::size_t>(current.row())].rowKey : std::string();
}

void PagesDock::Search(const QString& text) {
    const QScopedValueRollback marking(marking_, true);
    const bool searched = !text.trimmed().isEmpty();
    model_->ShowOnly(searched ? std::optional(finder_.Find(text)) : std::nullopt);
    SetCurrentPage(page_);
    nothing_->setVisible(searched && model_->rowCount() == 0 && !reading_->isActive());
    Q_EMIT HitsChanged();
}

// Reads listings for the search in slices while no events wait.
void PagesDock::ReadOn() {
    constexpr std::chrono::milliseconds kSlice{10};
    if (finder_.ReadOn(kSlice)) return;
    reading_->stop();
    // A text entered earlier has searched only a part of the listings.
    if (!filter_->text().trimmed().isEmpty()) Search(filter_->text());
}

void PagesDock::SelectFirst() {
    if (model_->rowCount() > 0 && !list_->currentIndex().isValid())
        list_->setCurrentIndex(model_->index(0, 0));
}

// In the field, the down key moves to the list and Escape clears the search.
bool PagesDock::FilterKey(int key) {
    if (key == Qt::Key_Escape) filter_->clear();
    if (key == Qt::Key_Down) {
        SelectFirst();
        list_->setFocus();
    }
    return key == Qt::Key_Escape || key == Qt::Key_Down;
}

// The menu is for the row under the pointer or, opened by a key, for the current row.
void PagesDock::ShowMenu(const QContextMenuEvent& event) {
    const bool byKey = event.reason() == QContextMenuEvent::Keyboard;
    const QModelIndex row = byKey ? list_->currentIndex() : list_->indexAt(event.pos());
    if (!row.isValid()) return;
    const int page = model_->PageAt(row.row());
    auto* menu = new QMenu(this);
    menu->setObjectName("pageMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QString("&Go to Page %1").arg(page), this, [this, page] { PageChosen(page); });
    menu->addAction(QString("&Export Page %1...").arg(page), this,
                    [this, page] { ExportWanted(page); });
    menu->popup(event.globalPos());
}

bool PagesDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched == filter_ && event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<const QKeyEvent*>(event);
        const bool command = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
        if (command && !EditsText(key, *filter_)) {
            event->ignore();
            return true;
        }
    }
    if (watched == filter_ && event->type() == QEvent::KeyPress &&
        FilterKey(static_cast<const QKeyEvent*>(event)->key()))
        return true;
    if (watched != filter_ && event->type() == QEvent::ContextMenu) {
        ShowMenu(*static_cast<const QContextMenuEvent*>(event));
        return true;
    }
    // The press that opens the menu does not turn the page.
    if (watched == list_->viewport() && event->type() == QEvent::MouseButtonPress &&
        static_cast<const QMouseEvent*>(event)->button() == Qt::RightButton)
        return true;
    return QDockWidget::eventFilter(watched, event);
}

}  // namespace app
