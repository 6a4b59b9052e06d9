#pragma once

#include <QImage>
#include <QPoint>

#include "desk/devices/CairoShapes.h"
#include "desk/documents/Document.h"
#include "desk/text/TextEngine.h"

namespace app {

/// A recording of a layout page, which can be painted at any size without its elements.
class PagePicture {
public:
    PagePicture(const desk::Document& document, desk::TextEngine& engine);

    double Width() const { return width_; }  ///< Inches, as is the height.
    double Height() const { return height_; }

    /// Paints the part of the sheet that starts at the pixel `from`, on white. The image format
    /// must be RGB32.
    void Paint(QImage& image, QPoint from, double pixelsPerInch) const;

private:
    void PaintWide(QImage& image, QPoint from, double pixelsPerInch, int across) const;

    double width_;
    double height_;
    desk::CairoSurface recording_;
};

}  // namespace app
