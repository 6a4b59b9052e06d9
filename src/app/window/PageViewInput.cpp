#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

#include "app/window/PageView.h"

/// Keys and pointer in the view of a page.
namespace app {
namespace {

constexpr double kWheelStep = 120;   // One wheel notch, in eighths of a degree.
constexpr double kNotchZoom = 1.15;  // Zoom factor of one notch.

}  // namespace

void PageView::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0)
        return QAbstractScrollArea::wheelEvent(event);
    const double notches = event->angleDelta().y() / kWheelStep;
    if (notches != 0) ZoomAt(zoom_ * std::pow(kNotchZoom, notches), event->position());
    event->accept();
}

void PageView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageUp:
            return Q_EMIT PreviousPageWanted();
        case Qt::Key_PageDown:
            return Q_EMIT NextPageWanted();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Q_EMIT PropertiesWanted();
        case Qt::Key_Escape:
            return Q_EMIT EscapePressed();
        case Qt::Key_Plus:
            return ZoomIn();
        case Qt::Key_Minus:
            return ZoomOut();
        case Qt::Key_Space:
            spaceDown_ = true;
            return UpdatePointer();
        default:
            QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->isAutoRepeat())
        return QAbstractScrollArea::keyReleaseEvent(event);
    spaceDown_ = false;
    UpdatePointer();
}

void PageView::focusOutEvent(QFocusEvent* event) {
    spaceDown_ = false;
    UpdatePointer();
    QAbstractScrollArea::focusOutEvent(event);
}

void PageView::mousePressEvent(QMouseEvent* event) {
    const bool pans =
        event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && spaceDown_);
    if (pans) {
        panFrom_ = event->pos();
        UpdatePointer();
    } else if (event->button() != Qt::MiddleButton && tiles_.Picture() != nullptr) {
        Q_EMIT Clicked(ToSheet(event->position()));
    }
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    if (!panFrom_) return;
    const QPoint by = event->pos() - *panFrom_;
    panFrom_ = event->pos();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
}

void PageView::mouseReleaseEvent(QMouseEvent*) {
    panFrom_.reset();
    UpdatePointer();
}

void PageView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && !spaceDown_ && tiles_.Picture() != nullptr)
        Q_EMIT PropertiesWanted();
}

void PageView::UpdatePointer() {
    if (panFrom_ || spaceDown_)
        viewport()->setCursor(panFrom_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    else
        viewport()->unsetCursor();
}

}  // namespace app
