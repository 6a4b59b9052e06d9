#pragma once

#include <QAbstractScrollArea>
#include <memory>
#include <optional>
#include <vector>

#include "app/window/PageTiles.h"

namespace app {

/// A marked place of the sheet, in inches from its upper left corner, Y downward.
struct PageMark {
    QRectF box;
    QColor color;
    bool current = false;  ///< Painted stronger.
};

/// Shows a layout page as it prints. Zooms with the wheel or by actions; pans with the middle
/// button, the space bar or the scroll bars. Signals clicks.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    /// How the zoom follows the size of the view.
    enum class Fit { None, Page, Width };

    explicit PageView(QWidget* parent = nullptr);

    /// Null: no page.
    void SetPicture(std::shared_ptr<const PagePicture> picture);
    /// The frame of the selected element, in inches from the sheet's upper left corner, Y downward.
    void SetSelection(std::optional<QRectF> frame);
    void SetMarks(std::vector<PageMark> marks);
    const std::vector<PageMark>& Marks() const { return marks_; }
    /// Scrolls to the current marks.
    void RevealMarks();

    /// 1 is the size on paper, by the resolution of the screen.
    double Zoom() const { return zoom_; }
    void SetZoom(double zoom);
    void ZoomIn();
    void ZoomOut();
    Fit FitMode() const { return fit_; }
    void SetFit(Fit fit);
    /// Converts a point on the sheet, in inches, to viewport coordinates.
    QPointF ToView(QPointF inches) const;

Q_SIGNALS:
    void ZoomChanged();
    /// A click or the press that opens the context menu, in inches from the sheet's upper left
    /// corner; may be outside the sheet.
    void Clicked(QPointF inches);
    /// A double click or Enter.
    void PropertiesWanted();
    void EscapePressed();
    void PreviousPageWanted();
    void NextPageWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    double PixelsPerInch() const;  ///< Device-independent pixels.
    QSizeF SheetSize() const;
    QPointF SheetCorner() const;
    QPointF ToSheet(QPointF place) const;
    double FittingZoom(Fit fit) const;
    void ApplyFit();
    void ZoomAt(double zoom, QPointF place);
    void UpdateScale();
    void UpdateLayout();
    void UpdatePointer();
    void PaintSheet(QPainter& painter, const QRect& part);
    QRectF ToView(const QRectF& inches) const;
    void PaintMarks(QPainter& painter);
    void PaintSelection(QPainter& painter, const QRectF& selection);

    PageTiles tiles_;
    std::optional<QRectF> selection_;
    std::vector<PageMark> marks_;
    double zoom_ = 1;
    Fit fit_ = Fit::Page;
    bool spaceDown_ = false;
    std::optional<QPoint> panFrom_;  ///< Last pointer position while the sheet is dragged.
};

}  // namespace app
