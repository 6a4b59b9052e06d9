#include "app/window/PageView.h"

#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cmath>

namespace app {
namespace {

constexpr int kMargin = 24;  // Around the sheet, in device-independent pixels.
constexpr double kLeastZoom = 0.05;
constexpr double kMostZoom = 16;
constexpr std::array kZooms{0.05, 0.1, 0.25, 0.33, 0.5, 0.67, 0.75, 1.0, 1.25,
                            1.5,  2.0, 3.0,  4.0,  6.0, 8.0,  12.0, 16.0};
constexpr double kAlmost = 1e-3;
constexpr float kBand = 0.35F;  // Opacity of marks.
constexpr float kCurrentBand = 0.75F;

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setAccessibleName("Layout page");
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    horizontalScrollBar()->setSingleStep(40);
    verticalScrollBar()->setSingleStep(40);
}

void PageView::SetPicture(std::shared_ptr<const PagePicture> picture) {
    tiles_.SetPicture(std::move(picture));
    ApplyFit();
    UpdateLayout();
}

void PageView::SetSelection(std::optional<QRectF> frame) {
    selection_ = frame;
    viewport()->update();
}

void PageView::SetMarks(std::vector<PageMark> marks) {
    marks_ = std::move(marks);
    viewport()->update();
}

void PageView::RevealMarks() {
    QRectF box;
    for (const PageMark& mark : marks_)
        if (mark.current) box |= ToView(mark.box);
    if (box.isEmpty()) return;
    // Of a box that is wider or higher than the view, the left upper part.
    const auto reveal = [](QScrollBar& bar, double from, double to, int room) {
        const double off = std::min(std::max(0.0, to + kMargin - room), from - kMargin);
        const double back = std::min(0.0, from - kMargin);
        bar.setValue(bar.value() + qRound(back < 0 ? back : std::max(0.0, off)));
    };
    reveal(*horizontalScrollBar(), box.left(), box.right(), viewport()->width());
    reveal(*verticalScrollBar(), box.top(), box.bottom(), viewport()->height());
}

double PageView::PixelsPerInch() const {
    return logicalDpiX() * zoom_;
}

QSizeF PageView::SheetSize() const {
    const PagePicture* const picture = tiles_.Picture();
    return picture == nullptr ? QSizeF()
                              : QSizeF(picture->Width(), picture->Height()) * PixelsPerInch();
}

// Centres the sheet if it fits, else follows the scroll bars.
QPointF PageView::SheetCorner() const {
    const QSizeF sheet = SheetSize();
    const auto edge = [](double room, double size, int scrolled) {
        const double whole = size + 2 * kMargin;
        return room >= whole ? (room - size) / 2 : kMargin - scrolled;
    };
    return {edge(viewport()->width(), sheet.width(), horizontalScrollBar()->value()),
            edge(viewport()->height(), sheet.height(), verticalScrollBar()->value())};
}

QPointF PageView::ToSheet(QPointF place) const {
    return (place - SheetCorner()) / PixelsPerInch();
}

QPointF PageView::ToView(QPointF inches) const {
    return SheetCorner() + inches * PixelsPerInch();
}

QRectF PageView::ToView(const QRectF& inches) const {
    return {ToView(inches.topLeft()), ToView(inches.bottomRight())};
}

double PageView::FittingZoom(Fit fit) const {
    const PagePicture* const picture = tiles_.Picture();
    if (picture == nullptr) return zoom_;
    const auto zoom = [](int room, double inches, double inch) {
        return std::clamp((room - 2 * kMargin) / (inches * inch), kLeastZoom, kMostZoom);
    };
    const QSize room = maximumViewportSize();
    const double width = zoom(room.width(), picture->Width(), logicalDpiX());
    const double height = zoom(room.height(), picture->Height(), logicalDpiX());
    if (fit == Fit::Page || width <= height) return std::min(width, height);
    // At this zoom the sheet is higher than the view, so the scroll bar takes width.
    const int bar = verticalScrollBar()->sizeHint().width() +
                    style()->pixelMetric(QStyle::PM_ScrollView_ScrollBarSpacing, nullptr, this);
    return zoom(room.width() - bar, picture->Width(), logicalDpiX());
}

void PageView::ApplyFit() {
    if (fit_ == Fit::None || tiles_.Picture() == nullptr) return;
    const double zoom = FittingZoom(fit_);
    if (zoom == zoom_) return;
    zoom_ = zoom;
    UpdateLayout();
    Q_EMIT ZoomChanged();
}

void PageView::SetFit(Fit fit) {
    fit_ = fit;
    ApplyFit();
    Q_EMIT ZoomChanged();
}

void PageView::SetZoom(double zoom) {
    ZoomAt(zoom, QPointF(viewport()->width(), viewport()->height()) / 2);
}

void PageView::ZoomIn() {
    const auto* const next = std::ranges::upper_bound(kZooms, zoom_ + kAlmost);
    SetZoom(next == kZooms.end() ? kMostZoom : *next);
}

void PageView::ZoomOut() {
    const auto* const next = std::ranges::lower_bound(kZooms, zoom_ - kAlmost);
    SetZoom(next == kZooms.begin() ? kLeastZoom : *(next - 1));
}

// Zooms and keeps the point of the sheet under `place` fixed.
void PageView::ZoomAt(double zoom, QPointF place) {
    fit_ = Fit::None;
    const QPointF held = ToSheet(place);
    zoom_ = std::clamp(zoom, kLeastZoom, kMostZoom);
    UpdateLayout();
    const QPointF off = ToView(held) - place;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + qRound(off.x()));
    verticalScrollBar()->setValue(verticalScrollBar()->value() + qRound(off.y()));
    Q_EMIT ZoomChanged();
}

void PageView::UpdateScale() {
    tiles_.SetPixelsPerInch(PixelsPerInch() * viewport()->devicePixelRatioF());
}

void PageView::UpdateLayout() {
    UpdateScale();
    const QSizeF sheet = SheetSize();
    const auto set = [](QScrollBar& bar, double size, int room) {
        // kAlmost prevents rounding errors from showing a bar for a sheet that fits.
        const int whole = static_cast<int>(std::ceil(size - kAlmost)) + 2 * kMargin;
        bar.setRange(0, std::max(0, whole - room));
        bar.setPageStep(room);
    };
    set(*horizontalScrollBar(), sheet.width(), viewport()->width());
    set(*verticalScrollBar(), sheet.height(), viewport()->height());
    viewport()->update();
}

void PageView::resizeEvent(QResizeEvent*) {
    ApplyFit();
    UpdateLayout();
}

void PageView::scrollContentsBy(int, int) {
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent* event) {
    if (tiles_.Picture() == nullptr) return;
    // The resolution changes when the window moves to another screen.
    UpdateScale();
    QPainter painter(viewport());
    PaintSheet(painter, event->rect());
    PaintMarks(painter);
    if (selection_) PaintSelection(painter, *selection_);
}

void PageView::PaintSheet(QPainter& painter, const QRect& part) {
    const double ratio = viewport()->devicePixelRatioF();
    const QPoint corner = (SheetCorner() * ratio).toPoint();
    const QRectF sheet(QPointF(corner) / ratio, QSizeF(tiles_.Size()) / ratio);

    // A soft shadow to the lower right.
    painter.setPen(Qt::NoPen);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int reach = 6; reach >= 1; --reach) {
        painter.setBrush(QColor(0, 0, 0, 14));
        painter.drawRoundedRect(sheet.adjusted(1 - reach, 2 - reach, reach, reach + 1), reach,
                                reach);
    }

    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    painter.translate(corner);
    const QRect pixels(QPoint(static_cast<int>(std::floor(part.left() * ratio)),
                              static_cast<int>(std::floor(part.top() * ratio))),
                       QSize(static_cast<int>(std::ceil(part.width() * ratio)) + 1,
                             static_cast<int>(std::ceil(part.height() * ratio)) + 1));
    tiles_.Paint(painter, pixels.translated(-corner));
    painter.restore();
}

// The sheet is white in any theme. Multiplied, the bands leave the letters black.
void PageView::PaintMarks(QPainter& painter) {
    painter.save();
    painter.setClipRect(QRectF(SheetCorner(), SheetSize()));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (const PageMark& mark : marks_) {
        QColor band = mark.color;
        band.setAlphaF(mark.current ? kCurrentBand : kBand);
        painter.setBrush(band);
        painter.setPen(mark.current ? QPen(mark.color.darker(), 2) : QPen(Qt::NoPen));
        painter.drawRect(ToView(mark.box));
    }
    painter.restore();
}

void PageView::PaintSelection(QPainter& painter, const QRectF& selection) {
    const QRectF frame = ToView(selection);
    const QColor color = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(color, hasFocus() ? 2 : 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

}  // namespace app
