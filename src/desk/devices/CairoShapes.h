#pragma once

#include <cairo.h>
#include <cstdint>
#include <span>

#include "desk/devices/Shapes.h"

/// Shapes painted by cairo. One unit of a context is a point, Y downward; colours are 0xBBGGRR.
namespace desk {

struct PaintPoint {
    double x = 0, y = 0;
};

void UseColor(cairo_t* context, std::uint32_t color);
/// Edges are not softened, so that neighbours show no seam.
void FillBoxes(cairo_t* context, std::span<const PaintBox> boxes, std::uint32_t color);
void StrokeOutline(cairo_t* context, const PaintOutline& outline);
void StrokeLine(cairo_t* context, PaintPoint start, PaintPoint end, std::uint32_t color);

}  // namespace desk
