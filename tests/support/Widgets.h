#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
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

/// The texts of a list from the top; of several columns those of the first.
inline QStringList RowTexts(const QAbstractItemView& list) {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        texts << list.model()->index(row, 0).data().toString();
    return texts;
}

/// Replaces the text of a box by what is typed.
inline void Retype(QLineEdit& box, const QString& text) {
    box.setFocus();
    box.selectAll();
    if (text.isEmpty()) QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

inline void Escape(QWidget& dialog) {
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

/// A button in the row of buttons that ends a dialog.
inline QPushButton& EndButton(QWidget& dialog, QDialogButtonBox::StandardButton which) {
    return *dialog.findChild<QDialogButtonBox*>()->button(which);
}

}  // namespace support
