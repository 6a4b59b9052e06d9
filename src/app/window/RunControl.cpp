#include "app/window/RunControl.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include "host/Failure.h"

namespace app {
namespace {

constexpr qint64 kInterval = 50;      // Milliseconds between two looks at the events.
constexpr qint64 kButtonDelay = 500;  // Milliseconds.

[[noreturn]] void FailCancelled() {
    throw host::Failure(host::kFailureUnspecified, "app::RunControl", "The run was cancelled.");
}

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

RunControl::RunControl(QAbstractButton* button) : QObject(button), button_(button) {
    button_->hide();
    connect(button_, &QAbstractButton::clicked, this, &RunControl::Cancel);
}

bool RunControl::Run(const std::function<void()>& work, const std::function<void()>& cancelled) {
    if (running_) {
        if (!cancelled_) work();
        return !cancelled_;
    }
    onCancel_ = cancelled;
    cancelled_ = false;
    SetRunning(true);
    try {
        work();
    } catch (...) {
        SetRunning(false);
        if (!cancelled_) throw;
        return false;
    }
    SetRunning(false);
    return !cancelled_;
}

void RunControl::SetRunning(bool running) {
    running_ = running;
    if (running) {
        sinceStart_.start();
        sincePoll_.start();
        qApp->installEventFilter(this);
    } else {
        qApp->removeEventFilter(this);
        button_->hide();
    }
    Q_EMIT RunningChanged(running);
}

void RunControl::Poll() {
    if (!running_ || polling_) return;
    if (cancelled_) FailCancelled();
    if (sincePoll_.elapsed() < kInterval) return;
    const QScopedValueRollback polling(polling_, true);
    // A dialog would keep clicks from the button.
    if (sinceStart_.elapsed() >= kButtonDelay)
        button_->setVisible(QApplication::activeModalWidget() == nullptr);
    QCoreApplication::processEvents();
    sincePoll_.start();
    if (cancelled_) FailCancelled();
}

void RunControl::Cancel() {
    if (!running_ || cancelled_) return;
    cancelled_ = true;
    if (onCancel_) onCancel_();
}

bool RunControl::eventFilter(QObject* watched, QEvent* event) {
    if (!IsInput(event->type())) return false;
    const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Cancel();
        return true;
    }
    // Windows pass mouse events on to their widgets, where they come by again.
    const bool mouse = dynamic_cast<QMouseEvent*>(event) != nullptr;
    if (mouse && (watched == button_ || watched->isWindowType())) return false;
    event->ignore();
    return true;
}

}  // namespace app
