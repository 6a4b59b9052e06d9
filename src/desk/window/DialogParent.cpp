#include "desk/window/DialogParent.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>

namespace desk {

namespace {

/// Pixels left free around a window, for its frame and the desktop's panels.
constexpr int kRoomAround = 60;

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
