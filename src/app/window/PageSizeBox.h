#pragma once

#include <QComboBox>
#include <QWidget>

#include "app/window/LengthBox.h"

namespace app {

/// Chooses the size of a sheet by the name of a format, by its sides, and by its orientation.
class PageSizeBox : public QWidget {
    Q_OBJECT

public:
    explicit PageSizeBox(QWidget* parent);

    void SetSize(const PageSize& size);
    /// The size on show; a side that is no length is 0.
    PageSize Size() const;
    /// Returns what is wrong with the size, in one sentence, and marks its field; empty if nothing.
    QString Fault();
    QWidget* First() const { return format_; }

Q_SIGNALS:
    void Changed();

private:
    void TakeFormat();
    void TakeSides();
    void Turn();
    void ShowFormat(const PageSize& size);
    bool IsLandscape() const { return orientation_->currentIndex() == 1; }

    QComboBox* format_;
    QComboBox* orientation_;
    LengthBox* width_;
    LengthBox* height_;
};

}  // namespace app
