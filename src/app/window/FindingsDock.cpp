#include "app/window/FindingsDock.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr int kNumber = Qt::UserRole;  // Of the row in rows_.

QString NumberText(std::int64_t number) {
    return number > 0 ? QString::number(number) : QString();
}

}  // namespace

FindingsDock::FindingsDock(QWidget* parent)
    : QDockWidget("Findings", parent), list_(new QTreeWidget), nothing_(new QLabel("No findings")) {
    setObjectName("findingsDock");
    auto* stack = new QStackedWidget(this);
    stack->addWidget(nothing_);
    stack->addWidget(list_);
    setWidget(stack);
    nothing_->setAlignment(Qt::AlignCenter);
    nothing_->setObjectName("noFindings");

    list_->setObjectName("findingList");
    list_->setAccessibleName("Findings");
    list_->setHeaderLabels({"Finding", "Listing", "Record", "Page"});
    for (int column = 2; column < 4; ++column)
        list_->headerItem()->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setUniformRowHeights(true);
    list_->setAllColumnsShowFocus(true);
    list_->setTextElideMode(Qt::ElideRight);
    list_->setExpandsOnDoubleClick(false);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list_->header()->setSectionResizeMode(1, QHeaderView::Interactive);
    for (int column = 2; column < 4; ++column)
        list_->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);

    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
    AddAction("&Go There", {Qt::Key_Return, Qt::Key_Enter}, &FindingsDock::Open);
    AddAction("&Copy", {QKeySequence::Copy}, &FindingsDock::Copy);
    connect(list_, &QTreeWidget::currentItemChanged, this, &FindingsDock::Chosen);
    // Also on the row that is current already, after another page was turned to.
    connect(list_, &QTreeWidget::itemClicked, this, &FindingsDock::Chosen);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, &FindingsDock::Open);
}

void FindingsDock::AddAction(const char* text, const QList<QKeySequence>& keys,
                             void (FindingsDock::*act)()) {
    auto* action = new QAction(text, list_);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    connect(action, &QAction::triggered, this, act);
    list_->addAction(action);
}

bool FindingsDock::SetFindings(const FindingList& reasons, const FindingList& findings) {
    if (reasons == reasons_ && findings == findings_) return false;
    const QSignalBlocker quiet(list_);
    list_->clear();
    rows_.clear();
    reasons_ = reasons;
    findings_ = findings;
    AddKinds(reasons_);
    AddKinds(findings_);
    auto* const stack = qobject_cast<QStackedWidget*>(widget());
    stack->setCurrentWidget(rows_.empty() ? static_cast<QWidget*>(nothing_) : list_);
    return true;
}

void FindingsDock::AddKinds(const FindingList& list) {
    for (const auto& kind : list.Kinds()) {
        auto* const group = new QTreeWidgetItem(list_);
        group->setText(0, QString("%1 (%2)").arg(desk::ToQt(kind.title)).arg(kind.count));
        group->setFirstColumnSpanned(true);
        QFont bold = list_->font();
        bold.setBold(true);
        group->setFont(0, bold);
        for (const Finding* const finding : kind.told)
            AddRow(*group, desk::ToQt(finding->text), finding);
        group->setExpanded(true);
        if (kind.summary.empty()) continue;
        auto* const rest = AddRow(*group, desk::ToQt(kind.summary), nullptr);
        for (const Finding* const finding : kind.more)
            AddRow(*rest, desk::ToQt(finding->text), finding);
    }
}

QTreeWidgetItem* FindingsDock::AddRow(QTreeWidgetItem& parent, const QString& text,
                                      const Finding* finding) {
    auto* const row = new QTreeWidgetItem(&parent, {text});
    row->setToolTip(0, text);
    row->setData(0, kNumber, static_cast<int>(rows_.size()));
    rows_.push_back(finding);
    if (finding == nullptr) return row;
    row->setText(1, desk::ToQt(finding->listing).simplified());
    row->setToolTip(1, row->text(1));
    row->setText(2, NumberText(finding->record));
    row->setText(3, NumberText(finding->page));
    for (int column = 2; column < 4; ++column)
        row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    return row;
}

void FindingsDock::FocusList() {
    show();
    raise();
    list_->setFocus();
}

const Finding* FindingsDock::Current() const {
    const auto* const row = list_->currentItem();
    const QVariant number = row != nullptr ? row->data(0, kNumber) : QVariant();
    return number.isValid() ? rows_[number.toUInt()] : nullptr;
}

// Enter on the heading of a kind or on the number of the rest shows or hides what it stands for.
void FindingsDock::Open() {
    if (Current() != nullptr) return Q_EMIT Opened();
    if (auto* const row = list_->currentItem()) row->setExpanded(!row->isExpanded());
}

// Copies the selected rows' texts in the order of the list, a line each.
void FindingsDock::Copy() {
    QStringList lines;
    for (QTreeWidgetItemIterator row(list_, QTreeWidgetItemIterator::Selected); *row != nullptr;
         ++row)
        lines << (*row)->text(0);
    if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join('\n'));
}

}  // namespace app
