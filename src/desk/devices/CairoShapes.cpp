#include "desk/devices/CairoShapes.h"

namespace desk {
namespace {

void AddRectangle(cairo_t* context, const PaintBox& box) {
    cairo_rectangle(context, box.left, box.top, box.right - box.left, box.bottom - box.top);
}

void AddLine(cairo_t* context, PaintPoint start, PaintPoint end) {
    cairo_move_to(context, start.x, start.y);
    cairo_line_to(context, end.x, end.y);
}

void Stroke(cairo_t* context, std::uint32_t color) {
    UseColor(context, color);
    cairo_set_line_width(context, kLineWidth);
    cairo_stroke(context);
}

}  // namespace

void UseColor(cairo_t* context, std::uint32_t color) {
    const auto share = [&](unsigned shift) { return ((color >> shift) & 0xFF) / 255.0; };
    cairo_set_source_rgb(context, share(0), share(8), share(16));
}

void FillBoxes(cairo_t* context, std::span<const PaintBox> boxes, std::uint32_t color) {
    UseColor(context, color);
    for (const PaintBox& box : boxes) AddRectangle(context, box);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_NONE);
    cairo_fill(context);
    cairo_set_antialias(context, CAIRO_ANTIALIAS_DEFAULT);
}

void StrokeOutline(cairo_t* context, const PaintOutline& outline) {
    const PaintBox& box = outline.box;
    AddRectangle(context, box);
    if (outline.crossed) {
        AddLine(context, {box.left, box.top}, {box.right, box.bottom});
        AddLine(context, {box.left, box.bottom}, {box.right, box.top});
    }
    Stroke(context, outline.color.rgb);
}

void StrokeLine(cairo_t* context, PaintPoint start, PaintPoint end, std::uint32_t color) {
    AddLine(context, start, end);
    Stroke(context, color);
}

}  // namespace desk
