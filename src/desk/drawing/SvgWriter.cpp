#include "desk/drawing/SvgWriter.h"

#include <cairo-svg.h>

namespace desk {

cairo_surface_t* SvgWriter::BeginSheet(double width, double height) {
    surface_.reset(cairo_svg_surface_create_for_stream(&OutputFile::Write, &File(), width, height));
    return surface_.get();
}

void SvgWriter::Close() {
    cairo_surface_finish(surface_.get());
    File().Check(cairo_surface_status(surface_.get()));
}

}  // namespace desk
