#include "page/SymbolPreview.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace gazetteer {
namespace {

// Logical pixels; fits one line of text.
constexpr int kLeastWidth = 150;
constexpr int kLeastHeight = 27;
// A symbol's text has its baseline at the middle of the area and needs its ascent above that: 40
// pixels fit texts up to 16 points at 96 dots per inch.
constexpr int kHeight = 40;
constexpr double kLines = 2.6;  ///< The same in lines of the form's font, if that is larger.
constexpr int kWidthToHeight = 5;

constexpr double kDisabledOpacity = 0.4;

}  // namespace

SymbolPreview::SymbolPreview(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SymbolPreview::PixelSize() const {
    const QSizeF size = QSizeF(contentsRect().size()) * devicePixelRatioF();
    return size.toSize();
}

double SymbolPreview::DotsPerInch() const {
    return logicalDpiY() * devicePixelRatioF();
}

void SymbolPreview::SetPicture(const QImage& picture) {
    picture_ = picture;
    picture_.setDevicePixelRatio(devicePixelRatioF());
    // A picture of the wrong size is not requested again.
    requested_ = Fits(picture_) ? QSize() : PixelSize();
    update();
}

void SymbolPreview::Clear() {
    picture_ = QImage();
    requested_ = QSize();
    update();
}

QSize SymbolPreview::sizeHint() const {
    const int lines = static_cast<int>(std::lround(fontMetrics().height() * kLines));
    const int height = std::max(lines, kHeight);
    return QSize(height * kWidthToHeight, height).expandedTo(minimumSizeHint());
}

QSize SymbolPreview::minimumSizeHint() const {
    return {kLeastWidth, kLeastHeight};
}

bool SymbolPreview::Fits(const QImage& picture) const {
    return picture.size() == PixelSize() &&
           qFuzzyCompare(picture.devicePixelRatio(), devicePixelRatioF());
}

// Requests the picture before the first painting.
void SymbolPreview::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    if (!Fits(picture_)) RequestPicture();
}

// Shows the old picture until the new one is set, to avoid flicker during resizing.
void SymbolPreview::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(contentsRect(), palette().window());
    if (!Fits(picture_)) RequestPicture();
    if (!picture_.isNull()) {
        painter.setClipRect(contentsRect());
        if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
        painter.drawImage(contentsRect().topLeft(), picture_);
    }
    painter.end();
    QFrame::paintEvent(event);
}

void SymbolPreview::RequestPicture() {
    const QSize needed = PixelSize();
    if (needed.isEmpty() || needed == requested_) return;
    requested_ = needed;
    QMetaObject::invokeMethod(this, &SymbolPreview::Paint, Qt::QueuedConnection);
}

}  // namespace gazetteer
