#pragma once

#include <QCache>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <memory>

#include "app/window/PagePicture.h"

namespace app {

/// A page picture at one resolution, in tiles that are painted on demand and cached.
class PageTiles {
public:
    PageTiles();

    /// Null: no picture.
    void SetPicture(std::shared_ptr<const PagePicture> picture);
    const PagePicture* Picture() const { return picture_.get(); }
    void SetPixelsPerInch(double pixelsPerInch);
    /// Returns the size of the sheet in pixels; empty without a picture.
    QSize Size() const;

    /// Paints a rectangle of the sheet, in pixels. The painter's origin is the corner of the sheet
    /// and its unit is a pixel.
    void Paint(QPainter& painter, const QRect& part);

private:
    const QImage& Tile(QPoint place);

    std::shared_ptr<const PagePicture> picture_;
    double pixelsPerInch_ = 96;
    QCache<QPoint, QImage> tiles_;  ///< By column and row; costs are in bytes.
};

}  // namespace app
