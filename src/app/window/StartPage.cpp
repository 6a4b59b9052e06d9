#include "app/window/StartPage.h"

#include <QAction>
#include <QCommandLinkButton>
#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

#include "app/window/Icons.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

QLabel* Heading(const QString& text, double times, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * times);
    font.setBold(true);
    label->setFont(font);
    return label;
}

}  // namespace

StartPage::StartPage(const QList<QAction*>& actions, QWidget* parent)
    : QWidget(parent), recent_(new QVBoxLayout) {
    auto* column = new QVBoxLayout;
    column->addStretch(2);
    column->addWidget(Heading("Gazetteer", 2, this));
    column->addWidget(
        new QLabel("The printed index of a map book, from a table of listings.", this));
    column->addSpacing(fontMetrics().height());
    for (QAction* action : actions) {
        auto* button =
            new QCommandLinkButton(action->text().remove("..."), action->statusTip(), this);
        button->setIcon(action->icon());
        connect(button, &QCommandLinkButton::clicked, action, &QAction::trigger);
        column->addWidget(button);
    }
    auto* drop = new QLabel("Or drop a document or a listing table into this window.", this);
    drop->setEnabled(false);
    column->addWidget(drop);
    column->addSpacing(fontMetrics().height());
    column->addLayout(recent_);
    column->addStretch(3);

    auto* row = new QHBoxLayout(this);
    row->addStretch(1);
    row->addLayout(column);
    row->addStretch(1);
}

void StartPage::ShowRecent(const QStringList& paths) {
    while (QLayoutItem* const item = recent_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    if (paths.isEmpty()) return;
    recent_->addWidget(Heading("Recent documents", 1, this));
    for (const QString& path : paths) {
        const QFileInfo file(path);
        auto* button = new QCommandLinkButton(desk::WithoutMnemonic(file.fileName()),
                                              desk::WithoutMnemonic(file.path()), this);
        button->setIcon(ThemeIcon("document-open"));
        connect(button, &QCommandLinkButton::clicked, this,
                [this, path] { Q_EMIT RecentChosen(path); });
        recent_->addWidget(button);
    }
}

}  // namespace app
