#pragma once

#include <QColor>
#include <QPushButton>
#include <cstdint>

namespace desk {

/// A button that shows a colour and lets the user pick another.
class ColorButton : public QPushButton {
    Q_OBJECT

public:
    explicit ColorButton(QWidget* parent);

    /// Red in the lowest byte, then green, then blue.
    std::uint32_t Rgb() const;
    void SetRgb(std::uint32_t rgb);

Q_SIGNALS:
    /// The user picked a colour.
    void Picked();

protected:
    void changeEvent(QEvent* event) override;

private:
    void Pick();
    void ShowColor();

    QColor color_ = Qt::black;
};

}  // namespace desk
