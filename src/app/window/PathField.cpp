#include "app/window/PathField.h"

#include <QDir>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace app {

PathField::PathField(const QString& name, Chooser chooser, QWidget* parent)
    : QWidget(parent), line_(new QLineEdit(this)) {
    line_->setObjectName(name + "Line");
    line_->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    auto* browse = new QPushButton("Browse...", this);
    browse->setObjectName(name + "Browse");
    browse->setAutoDefault(false);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(line_, 1);
    layout->addWidget(browse);
    setFocusPolicy(Qt::TabFocus);  // Else its label's key does nothing.
    setFocusProxy(line_);
    connect(line_, &QLineEdit::textChanged, this, &PathField::Changed);
    connect(browse, &QPushButton::clicked, this, [this, chooser = std::move(chooser)] {
        const QString path = chooser(Path());
        if (!path.isEmpty()) SetPath(path);
    });
}

QString PathField::Path() const {
    const QString path = line_->text().trimmed();
    // Expands ~ like a shell.
    return path.startsWith("~/") ? QDir::homePath() + path.mid(1) : path;
}

void PathField::SetPath(const QString& path) {
    line_->setText(QDir::toNativeSeparators(path));
}

}  // namespace app
