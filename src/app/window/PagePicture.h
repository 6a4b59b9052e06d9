#pragma once

#include <QImage>
#include <QPoint>

#include "desk/devices/CairoShapes.h"
#include "desk/documents/Document.h"
#include "desk/text/TextEngine.h"

namespace app {

/// A layout page as it was when the picture was taken: what is drawn, not its pixels, so that it
/// can be painted at any size without asking the elements again.
class PagePicture {
public:
    PagePicture(const desk::Document& document, desk::TextEngine& engine);

    double Width() const { return width_; }  ///< Inches, as is the height.
    double Height() const { return height_; }

    /// Paints the part of the sheet that begins at a pixel of it. The image becomes white where
    /// nothing is drawn; it must be of the format RGB32.
    void Paint(QImage& image, QPoint from, double pixelsPerInch) const;

private:
    void PaintWide(QImage& image, QPoint from, double pixelsPerInch, int across) const;

    double width_;
    double height_;
    desk::CairoSurface recording_;
};

}  // namespace app
