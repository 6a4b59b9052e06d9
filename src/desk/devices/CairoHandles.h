#pragma once

#include <cairo.h>
#include <memory>

namespace desk {

/// Owners of what cairo hands out.
struct CairoReleaser {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using CairoContext = std::unique_ptr<cairo_t, CairoReleaser>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoReleaser>;

}  // namespace desk
