#pragma once

#include <QApplication>
#include <QCursor>

namespace app {

/// Shows the wait cursor while it exists.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace app
