#include "app/window/PagePicture.h"

#include "desk/drawing/ElementPainter.h"

namespace app {
namespace {

desk::CairoSurface NewRecording(double width, double height) {
    const cairo_rectangle_t sheet{0, 0, width * desk::kPointsPerInch,
                                  height * desk::kPointsPerInch};
    return desk::CairoSurface(
        cairo_recording_surface_create(CAIRO_CONTENT_COLOR_ALPHA, &sheet));
}

}  // namespace

PagePicture::PagePicture(const desk::Document& document, desk::TextEngine& engine)
    : width_(document.pageWidth),
      height_(document.pageHeight),
      recording_(NewRecording(width_, height_)) {
    const desk::CairoContext context(cairo_create(recording_.get()));
    cairo_translate(context.get(), 0, height_ * desk::kPointsPerInch);
    desk::ElementPainter painter(engine);
    for (const auto& element : document.elements) painter.Paint(context.get(), element);
}

void PagePicture::Paint(QImage& image, QPoint from, double pixelsPerInch) const {
    image.fill(Qt::white);
    const desk::CairoSurface surface(cairo_image_surface_create_for_data(
        image.bits(), CAIRO_FORMAT_RGB24, image.width(), image.height(),
        static_cast<int>(image.bytesPerLine())));
    const desk::CairoContext context(cairo_create(surface.get()));
    cairo_translate(context.get(), -from.x(), -from.y());
    cairo_scale(context.get(), pixelsPerInch / desk::kPointsPerInch,
                pixelsPerInch / desk::kPointsPerInch);
    cairo_set_source_surface(context.get(), recording_.get(), 0, 0);
    cairo_paint(context.get());
    cairo_surface_flush(surface.get());
}

}  // namespace app
