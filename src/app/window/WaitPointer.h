#pragma once

#include <QApplication>
#include <QCursor>

namespace app {

/// The pointer tells to wait as long as it lives.
class WaitPointer {
public:
    WaitPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitPointer() { QApplication::restoreOverrideCursor(); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
};

}  // namespace app
