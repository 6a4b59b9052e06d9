#include "desk/window/ColorButton.h"

#include <QColorDialog>
#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace desk {

ColorButton::ColorButton(QWidget* parent) : QPushButton(parent) {
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &ColorButton::Pick);
    ShowColor();
}

std::uint32_t ColorButton::Rgb() const {
    return static_cast<std::uint32_t>(color_.red()) |
           static_cast<std::uint32_t>(color_.green()) << 8U |
           static_cast<std::uint32_t>(color_.blue()) << 16U;
}

void ColorButton::SetRgb(std::uint32_t rgb) {
    color_ = QColor(static_cast<int>(rgb & 0xFFU), static_cast<int>(rgb >> 8U & 0xFFU),
                    static_cast<int>(rgb >> 16U & 0xFFU));
    ShowColor();
}

void ColorButton::Pick() {
    const QColor picked = QColorDialog::getColor(color_, this, "Colour");
    if (!picked.isValid()) return;
    color_ = picked;
    ShowColor();
    Q_EMIT Picked();
}

void ColorButton::changeEvent(QEvent* event) {
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) ShowColor();
}

void ColorButton::ShowColor() {
    const QSize size(fontMetrics().height() * 2, fontMetrics().height());
    const qreal ratio = devicePixelRatioF();
    QPixmap swatch(size * ratio);
    swatch.setDevicePixelRatio(ratio);
    swatch.fill(isEnabled() ? color_ : QColor(Qt::transparent));
    QPainter painter(&swatch);
    painter.setPen(palette().color(QPalette::Disabled, QPalette::WindowText));
    painter.drawRect(QRectF(0.5, 0.5, size.width() - 1.0, size.height() - 1.0));
    painter.end();
    setIcon(QIcon(swatch));
    setIconSize(size);
    setText(color_.name().toUpper() + "...");
    setAccessibleDescription("Colour " + color_.name());
}

}  // namespace desk
