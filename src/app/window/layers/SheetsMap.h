#pragma once

#include <QPainterPath>
#include <QTransform>
#include <QWidget>
#include <vector>

#include "gis/module/Locate.h"

namespace app {

/// A small map of sheets, their squares and features. The wheel magnifies it, the mouse moves it,
/// a double click shows all of it.
class SheetsMap : public QWidget {
    Q_OBJECT

public:
    explicit SheetsMap(QWidget* parent);

    /// Takes what has been located; its sketch is shown.
    void Show(const gis::LocateResult& result);
    void Clear();
    /// Marks the squares of references, and shows them all.
    void Mark(const std::vector<gis::Reference>& references);

    QSize sizeHint() const override { return {420, 420}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct Sheet {
        QPolygonF outline;
        QString page;
        QPainterPath squares;
    };
    void ShowAll();
    void DrawMarks(QPainter& painter) const;
    void DrawSheets(QPainter& painter) const;
    QPolygonF OnScreen(const gis::MapLine& line) const;

    gis::MapSketch sketch_;
    std::vector<Sheet> sheets_;
    QPainterPath lines_;
    QPolygonF places_;
    std::vector<gis::Reference> marked_;
    QRectF extent_;
    QTransform toScreen_;
    QPointF dragged_;
};

}  // namespace app
