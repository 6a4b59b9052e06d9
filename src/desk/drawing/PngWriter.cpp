#include "desk/drawing/PngWriter.h"

#include <cmath>

namespace desk {

cairo_surface_t* PngWriter::BeginSheet(double width, double height) {
    const double scale = dotsPerInch_ / kPointsPerInch;
    surface_.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                              static_cast<int>(std::lround(width * scale)),
                                              static_cast<int>(std::lround(height * scale))));
    File().Check(cairo_surface_status(surface_.get()));
    cairo_surface_set_device_scale(surface_.get(), scale, scale);
    const CairoContext paper(cairo_create(surface_.get()));
    cairo_set_source_rgb(paper.get(), 1, 1, 1);
    cairo_paint(paper.get());
    return surface_.get();
}

void PngWriter::Close() {
    File().Check(cairo_surface_write_to_png_stream(surface_.get(), &OutputFile::Write, &File()));
}

}  // namespace desk
