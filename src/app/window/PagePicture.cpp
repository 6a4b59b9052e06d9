#include "app/window/PagePicture.h"

#include "desk/drawing/Canvas.h"
#include "desk/drawing/ElementPainter.h"

namespace app {
namespace {

// Cairo places glyphs on whole pixels, which gives small type uneven gaps. Painting 4 times as wide
// and averaging places glyphs to a quarter of a pixel.
constexpr int kAcross = 4;
constexpr double kLargePixelsPerInch = 300;

// Averages kAcross pixels to one. Adds red and blue in one sum.
void Narrow(const QImage& wide, QImage& image) {
    constexpr QRgb kEveryOther = 0x00FF00FF;
    constexpr unsigned kShift = 2;  // 4 pixels.
    static_assert(kAcross == 1 << kShift);
    for (int y = 0; y < image.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(wide.constScanLine(y));
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, ++to) {
            QRgb redBlue = 0;
            QRgb green = 0;
            for (int i = 0; i < kAcross; ++i, ++from) {
                redBlue += *from & kEveryOther;
                green += (*from >> 8U) & kEveryOther;
            }
            *to = ((redBlue >> kShift) & kEveryOther) | (((green >> kShift) & kEveryOther) << 8U);
        }
    }
}

desk::CairoSurface NewRecording(double width, double height) {
    const cairo_rectangle_t sheet{0, 0, width * desk::kPointsPerInch,
                                  height * desk::kPointsPerInch};
    return desk::CairoSurface(cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &sheet));
}

}  // namespace

PagePicture::PagePicture(const desk::Document& document, desk::TextEngine& engine)
    : width_(document.pageWidth),
      height_(document.pageHeight),
      recording_(NewRecording(width_, height_)) {
    const desk::CairoContext context(cairo_create(recording_.get()));
    cairo_translate(context.get(), 0, height_ * desk::kPointsPerInch);
    desk::CairoCanvas canvas(context.get());
    desk::ElementPainter painter(engine);
    for (const auto& element : document.elements) painter.Paint(canvas, element);
}

void PagePicture::Paint(QImage& image, QPoint from, double pixelsPerInch) const {
    // Fractions of a pixel do not show in large type.
    if (pixelsPerInch > kLargePixelsPerInch) return PaintWide(image, from, pixelsPerInch, 1);
    QImage wide(image.width() * kAcross, image.height(), QImage::Format_RGB32);
    PaintWide(wide, from, pixelsPerInch, kAcross);
    Narrow(wide, image);
}

// Paints the sheet stretched horizontally by `across`.
void PagePicture::PaintWide(QImage& image, QPoint from, double pixelsPerInch, int across) const {
    image.fill(Qt::white);
    const desk::CairoSurface surface(cairo_image_surface_create_for_data(
        image.bits(), CAIRO_FORMAT_RGB24, image.width(), image.height(),
        static_cast<int>(image.bytesPerLine())));
    const desk::CairoContext context(cairo_create(surface.get()));
    const double scale = pixelsPerInch / desk::kPointsPerInch;
    cairo_translate(context.get(), -from.x() * across, -from.y());
    cairo_scale(context.get(), scale * across, scale);
    cairo_set_source_surface(context.get(), recording_.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(surface.get());
}

}  // namespace app
