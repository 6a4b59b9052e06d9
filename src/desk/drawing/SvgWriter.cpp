#include "desk/drawing/SvgWriter.h"

#include <cairo-svg.h>

namespace desk {

CairoSurface SvgWriter::NewSurface(double width, double height) {
    return CairoSurface(cairo_svg_surface_create_for_stream(&Write, &File(), width, height));
}

void SvgWriter::Close() {
    cairo_surface_finish(Surface());
    Check(cairo_surface_status(Surface()));
    LetGo();
}

}  // namespace desk
