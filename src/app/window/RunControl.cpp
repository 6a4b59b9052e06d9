#include "app/window/RunControl.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <QWindow>

#include "app/window/RunDialog.h"
#include "host/Failure.h"

namespace app {
namespace {

constexpr qint64 kInterval = 50;      // Milliseconds between two looks at the events.
constexpr qint64 kDialogDelay = 500;  // Milliseconds.

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

RunControl::RunControl(QWidget& window) : QObject(&window), window_(window) {}

RunControl::~RunControl() = default;

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
    shown_ = {};
    dialog_ = nullptr;
    sinceStart_.start();
    sincePoll_.start();
    Q_EMIT RunningChanged(running);
}

void RunControl::Show(const RunProgress::Shown& shown) {
    if (shown.text.empty()) return;
    shown_ = shown;
    if (dialog_) dialog_->Show(shown_);
}

void RunControl::Poll() {
    if (!running_ || polling_) return;
    if (cancelled_) FailCancelled();
    if (sincePoll_.elapsed() < kInterval) return;
    if (!dialog_ && sinceStart_.elapsed() >= kDialogDelay) OpenDialog();
    ProcessEvents();
    if (cancelled_) FailCancelled();
}

void RunControl::OpenDialog() {
    QWidget* const modal = QApplication::activeModalWidget();
    dialog_ = std::make_unique<RunDialog>(modal != nullptr ? modal : &window_);
    connect(dialog_.get(), &QDialog::rejected, this, &RunControl::Cancel);
    dialog_->Show(shown_);
    dialog_->show();
}

// The filter stands for this time only: a message that the run shows takes input as usual.
void RunControl::ProcessEvents() {
    const QScopedValueRollback polling(polling_, true);
    qApp->installEventFilter(this);
    QCoreApplication::processEvents();
    qApp->removeEventFilter(this);
    sincePoll_.start();
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
    // Windows pass their events on to their widgets, where they come by again.
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (dialog_ &&
        (widget ? widget->window() == dialog_.get() : watched == dialog_->windowHandle()))
        return false;
    event->ignore();
    return true;
}

}  // namespace app
