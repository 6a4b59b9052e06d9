#pragma once

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>

namespace support {

/// Milliseconds to wait for a dialog to open, and for it to close.
inline constexpr int kPatience = 10000;

/// Acts on the next modal dialog that opens over what is open now. The action ends the dialog; one
/// that is still open long after is a failed test and is closed.
inline void WhenModal(std::function<void(QWidget&)> action) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, qApp,
                     [timer, action = std::move(action), waited = 0,
                      before = QPointer<QWidget>(QApplication::activeModalWidget())]() mutable {
                         QWidget* modal = QApplication::activeModalWidget();
                         if (modal == nullptr || modal == before || !modal->isActiveWindow()) {
                             if ((waited += timer->interval()) < kPatience) return;
                             ADD_FAILURE() << "no dialog opened";
                             timer->deleteLater();
                             return;
                         }
                         timer->stop();
                         timer->deleteLater();
                         QTimer::singleShot(kPatience, modal, [modal] {
                             ADD_FAILURE() << "the dialog stayed open";
                             qobject_cast<QDialog*>(modal)->reject();
                         });
                         action(*modal);
                     });
    timer->start(10);
}

/// A widget inside another by its object name.
template <class T>
T& Part(QWidget& whole, const char* name) {
    T* part = whole.findChild<T*>(name);
    if (part == nullptr) throw std::runtime_error(std::string("there is no ") + name);
    return *part;
}

}  // namespace support
