#include "page/SymbolPreview.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace gazetteer {
namespace {

// Logical pixels: the length of a swatch that a line of text fits into.
constexpr int kLeastWidth = 150;
constexpr int kLeastHeight = 27;
// The text of a symbol stands on the middle of the area and needs its ascent above and a third of
// that below: this takes texts up to 16 points at 96 dots per inch.
constexpr int kHeight = 40;
constexpr double kLines = 2.6;  ///< The same beside larger fonts of the form.
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
    askedFor_ = Fits(picture_) ? QSize() : PixelSize();  // A wrong answer is not asked for again.
    update();
}

void SymbolPreview::Clear() {
    picture_ = QImage();
    askedFor_ = QSize();
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

// Asked for now, the picture is there for the first painting.
void SymbolPreview::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    if (!Fits(picture_)) Ask();
}

// A picture that no longer fits is shown until the new one is there, so that nothing flickers while
// the window is being resized.
void SymbolPreview::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(contentsRect(), palette().window());
    if (!Fits(picture_)) Ask();
    if (!picture_.isNull()) {
        painter.setClipRect(contentsRect());
        if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
        painter.drawImage(contentsRect().topLeft(), picture_);
    }
    painter.end();
    QFrame::paintEvent(event);
}

void SymbolPreview::Ask() {
    const QSize needed = PixelSize();
    if (needed.isEmpty() || needed == askedFor_) return;
    askedFor_ = needed;
    QMetaObject::invokeMethod(this, &SymbolPreview::Paint, Qt::QueuedConnection);
}

}  // namespace gazetteer
