#pragma once

#include <cairo.h>
#include <cstdint>
#include <memory>
#include <span>

#include "desk/text/Handles.h"
#include "host/Geometry.h"
#include "pdf/color/Color.h"

/// Shapes other than texts, and how cairo paints them. One unit is a point, Y downward; colours are
/// 0xBBGGRR.
namespace desk {

using host::kPointsPerInch;

using CairoContext = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;
using CairoSurface = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;

struct PaintPoint {
    double x = 0, y = 0;
};

struct PaintBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    bool Overlaps(const PaintBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    PaintBox Shrunk(double by) const { return {left + by, top + by, right - by, bottom - by}; }
};

/// The edges of a box, and also its diagonals if it is crossed.
struct PaintOutline {
    PaintBox box;
    pdf::Color color;
    bool crossed = false;
};

/// Width of all lines, in points.
inline constexpr double kLineWidth = 0.5;

void UseColor(cairo_t* context, std::uint32_t color);
/// Edges are not antialiased, so that adjacent boxes show no seam.
void FillBoxes(cairo_t* context, std::span<const PaintBox> boxes, std::uint32_t color);
void StrokeOutline(cairo_t* context, const PaintOutline& outline);
void StrokeLine(cairo_t* context, PaintPoint start, PaintPoint end, std::uint32_t color);

}  // namespace desk
