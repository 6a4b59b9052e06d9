#pragma once

#include <cairo.h>

namespace desk {

/// Whether the context draws on pixels, to which cairo would move each glyph.
inline bool IsImage(cairo_t* context) {
    return cairo_surface_get_type(cairo_get_group_target(context)) == CAIRO_SURFACE_TYPE_IMAGE;
}

}  // namespace desk
