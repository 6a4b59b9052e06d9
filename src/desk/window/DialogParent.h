#pragma once

#include <functional>

#include "host/PropertyPages.h"

class QSize;
class QWidget;

namespace desk {

/// Gives the main window, or null before there is one.
using ParentWidget = std::function<QWidget*()>;

/// What a dialog is to lie over: a modal dialog that is open now, else the window of this handle,
/// else the main window. May be null.
QWidget* DialogParent(const ParentWidget& mainWindow, host::WindowHandle handle = 0);

/// Resizes a dialog, to no more than its screen has room for.
void ResizeToScreen(QWidget& dialog, QSize wanted);

}  // namespace desk
