#pragma once

#include <QCache>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <memory>

#include "app/window/PagePicture.h"

namespace app {

/// The pixels of a page picture at one size, in tiles that are painted when they are first seen and
/// kept for a while.
class PageTiles {
public:
    PageTiles();

    /// Another picture; null for none.
    void SetPicture(std::shared_ptr<const PagePicture> picture);
    const PagePicture* Picture() const { return picture_.get(); }
    void SetPixelsPerInch(double pixelsPerInch);
    /// Of the whole sheet, in pixels; empty without a picture.
    QSize Size() const;

    /// Paints the part of the sheet in a rectangle of its pixels. The painter's origin is the
    /// sheet's corner, its unit a pixel.
    void Paint(QPainter& painter, const QRect& part);

private:
    const QImage& Tile(QPoint place);

    std::shared_ptr<const PagePicture> picture_;
    double pixelsPerInch_ = 96;
    QCache<QPoint, QImage> tiles_;  ///< By column and row; costs are in bytes.
};

}  // namespace app
