#pragma once

#include <functional>

#include "host/PropertyPages.h"

class QSize;
class QWidget;

namespace desk {

/// Returns the main window, or null before it exists.
using ParentWidget = std::function<QWidget*()>;

/// Returns the parent for a dialog: the active modal dialog, else the window of the handle, else
/// the main window. May return null.
QWidget* DialogParent(const ParentWidget& mainWindow, host::WindowHandle handle = 0);

/// Resizes a window to the wanted size, limited to the size of its screen.
void ResizeToScreen(QWidget& window, QSize wanted);

}  // namespace desk
