#include "desk/drawing/PngWriter.h"

#include <cmath>

namespace desk {

CairoSurface PngWriter::NewSurface(double width, double height) {
    const double scale = dotsPerInch_ / kPointsPerInch;
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                                    static_cast<int>(std::lround(width * scale)),
                                                    static_cast<int>(std::lround(height * scale))));
    Check(cairo_surface_status(surface.get()));
    cairo_surface_set_device_scale(surface.get(), scale, scale);
    const CairoContext paper(cairo_create(surface.get()));
    cairo_set_source_rgb(paper.get(), 1, 1, 1);
    cairo_paint(paper.get());
    return surface;
}

void PngWriter::Close() {
    Check(cairo_surface_write_to_png_stream(Surface(), &Write, &File()));
    LetGo();
}

}  // namespace desk
