#include "desk/window/DialogParent.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

namespace desk {

namespace {

/// Pixels left free around a window, for its frame.
constexpr int kRoomAround = 40;

}  // namespace

QWidget* DialogParent(const ParentWidget& mainWindow, host::WindowHandle handle) {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (handle != 0)
        if (QWidget* given = QWidget::find(static_cast<WId>(handle))) return given->window();
    return mainWindow ? mainWindow() : nullptr;
}

void ResizeToScreen(QWidget& window, QSize wanted) {
    if (const QScreen* screen = window.screen())
        wanted = wanted.boundedTo(screen->availableSize() - QSize(kRoomAround, kRoomAround));
    window.resize(wanted);
}

}  // namespace desk
