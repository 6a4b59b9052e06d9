#include "app/window/layers/SheetsMap.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "desk/window/WidgetText.h"

namespace app {
namespace {

constexpr double kMargin = 12;     // Pixels around the map.
constexpr double kStep = 1.25;     // Magnification of a step of the wheel.
constexpr double kMarkBorder = 3;  // Pixels, so that the smallest squares are seen.
constexpr float kMarkStrength = 0.5F;
constexpr float kFeatureStrength = 0.45F;
constexpr double kPlaceSize = 3;    // Pixels.
constexpr double kLeastSquare = 7;  // Pixels of a square whose borders are drawn.

QPolygonF Polygon(const gis::MapLine& line) {
    QPolygonF polygon;
    for (const auto& point : line) polygon << QPointF(point.x, point.y);
    return polygon;
}

}  // namespace

SheetsMap::SheetsMap(QWidget* parent) : QWidget(parent) {
    setObjectName("sheetsMap");
    setAccessibleName("Map of the sheets and what is listed");
    setMinimumSize(240, 240);
}

void SheetsMap::Show(const gis::LocateResult& result) {
    Clear();
    sketch_ = result.sketch;
    for (std::size_t i = 0; i < sketch_.sheets.size(); ++i) {
        Sheet sheet{Polygon(sketch_.sheets[i].outline), desk::ToQt(result.pages[i]), {}};
        for (const auto& square : sketch_.sheets[i].squares)
            sheet.squares.addPolygon(Polygon(square.outline));
        extent_ |= sheet.outline.boundingRect();
        sheets_.push_back(std::move(sheet));
    }
    for (const auto& line : sketch_.features)
        if (line.size() == 1)
            places_ << QPointF(line.front().x, line.front().y);
        else
            lines_.addPolygon(Polygon(line));
    ShowAll();
}

void SheetsMap::Clear() {
    sketch_ = {};
    sheets_.clear();
    lines_ = {};
    places_.clear();
    marked_.clear();
    extent_ = {};
    update();
}

void SheetsMap::Mark(const std::vector<gis::Reference>& references) {
    marked_ = references;
    ShowAll();
}

void SheetsMap::ShowAll() {
    toScreen_ = {};
    if (!extent_.isEmpty()) {
        const double scale = std::min((width() - 2 * kMargin) / extent_.width(),
                                      (height() - 2 * kMargin) / extent_.height());
        toScreen_.translate(width() / 2.0, height() / 2.0);
        toScreen_.scale(scale, -scale);  // The north is above.
        toScreen_.translate(-extent_.center().x(), -extent_.center().y());
    }
    update();
}

QPolygonF SheetsMap::OnScreen(const gis::MapLine& line) const {
    return toScreen_.map(Polygon(line));
}

void SheetsMap::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    if (sheets_.empty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         "The map shows the sheets and what is listed.");
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    QColor features = palette().color(QPalette::Link);
    features.setAlphaF(kFeatureStrength);
    painter.setPen(QPen(features, 0));
    painter.drawPath(toScreen_.map(lines_));
    painter.setPen(QPen(features, kPlaceSize, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoints(toScreen_.map(places_));
    DrawSheets(painter);
    DrawMarks(painter);
}

void SheetsMap::DrawMarks(QPainter& painter) const {
    QColor mark = palette().color(QPalette::Highlight);
    painter.setPen(QPen(mark, kMarkBorder));
    mark.setAlphaF(kMarkStrength);
    painter.setBrush(mark);
    for (const auto& reference : marked_)
        for (const auto& square : sketch_.sheets[reference.sheet].squares)
            if (square.row == reference.row && square.column == reference.column)
                painter.drawPolygon(OnScreen(square.outline));
    painter.setBrush(Qt::NoBrush);
}

void SheetsMap::DrawSheets(QPainter& painter) const {
    QColor grid = palette().color(QPalette::Text);
    grid.setAlphaF(0.25F);
    for (std::size_t i = 0; i < sheets_.size(); ++i) {
        const Sheet& sheet = sheets_[i];
        const QPolygonF outline = toScreen_.map(sheet.outline);
        const QRectF box = outline.boundingRect();
        const double count = std::max<double>(1, std::sqrt(sketch_.sheets[i].squares.size()));
        painter.setPen(QPen(grid, 0));
        if (std::min(box.width(), box.height()) / count >= kLeastSquare)
            painter.drawPath(toScreen_.map(sheet.squares));
        painter.setPen(QPen(palette().color(QPalette::Text), 1));
        painter.drawPolyline(outline);
        painter.drawText(QRectF(box.topLeft() + QPointF(3, 1), QSizeF(box.width(), 40)),
                         Qt::AlignLeft | Qt::AlignTop, sheet.page);
    }
}

void SheetsMap::resizeEvent(QResizeEvent*) {
    ShowAll();
}

void SheetsMap::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / double{QWheelEvent::DefaultDeltasPerStep};
    const double scale = std::pow(kStep, steps);
    const QPointF at = event->position();
    QTransform larger;
    larger.translate(at.x(), at.y());
    larger.scale(scale, scale);
    larger.translate(-at.x(), -at.y());
    toScreen_ *= larger;
    update();
    event->accept();
}

void SheetsMap::mousePressEvent(QMouseEvent* event) {
    dragged_ = event->position();
}

void SheetsMap::mouseMoveEvent(QMouseEvent* event) {
    const QPointF moved = event->position() - dragged_;
    dragged_ = event->position();
    toScreen_ *= QTransform::fromTranslate(moved.x(), moved.y());
    update();
}

void SheetsMap::mouseDoubleClickEvent(QMouseEvent*) {
    ShowAll();
}

}  // namespace app
