#pragma once

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace support {

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
