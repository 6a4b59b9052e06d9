#include "app/window/layers/Disclosure.h"

#include <QScrollArea>
#include <QTimer>
#include <utility>

namespace app {

Disclosure::Disclosure(const QString& name, const QString& text, QWidget* parent)
    : QToolButton(parent), name_(text) {
    setObjectName(name);
    setAutoRaise(true);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QToolButton::clicked, this, [this] { Open(!open_); });
    Open(false);
}

void Disclosure::Add(QWidget* part) {
    parts_.push_back(part);
    part->setVisible(open_);
}

void Disclosure::SetCount(int count) {
    const bool isFirst = std::exchange(count_, count) == 0 && count > 0;
    if (isFirst && !open_) return Open(true);
    ShowText();
}

void Disclosure::Open(bool open) {
    open_ = open;
    for (QWidget* const part : parts_) part->setVisible(open);
    setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    ShowText();
    // The layout places what is new only after this event.
    if (open) QTimer::singleShot(0, this, &Disclosure::Reveal);
}

void Disclosure::ShowText() {
    setText(open_ || count_ == 0 ? name_ : QString("%1 (%2 set)").arg(name_).arg(count_));
}

void Disclosure::Reveal() {
    if (parts_.empty()) return;
    for (QWidget* around = parentWidget(); around != nullptr; around = around->parentWidget())
        if (auto* const area = qobject_cast<QScrollArea*>(around))
            return area->ensureWidgetVisible(parts_.back());
}

}  // namespace app
