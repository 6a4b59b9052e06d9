#pragma once

#include <cairo.h>
#include <cstdint>
#include <optional>
#include <span>

#include "desk/text/TextEngine.h"
#include "host/Symbols.h"

/// How symbols look, wherever they are drawn. One unit of a context is a point, Y downward; colours
/// are 0xBBGGRR.
namespace desk {

/// An upright rectangle in points, Y downward.
struct PaintBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    bool Overlaps(const PaintBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    PaintBox Shrunk(double by) const { return {left + by, top + by, right - by, bottom - by}; }
};

/// A line along the edges of a box, and along its diagonals if it is crossed.
struct PaintOutline {
    PaintBox box;
    std::uint32_t color = 0;
    bool crossed = false;
};

struct PaintPoint {
    double x = 0, y = 0;
};

/// Width of every line, in points.
inline constexpr double kLineWidth = 0.5;

/// Nothing for a colour that does not show.
std::optional<std::uint32_t> VisibleColor(const host::Ref<host::IHostColor>& color);
FontSpec FontOf(const host::IHostTextSymbol& symbol);

void UseColor(cairo_t* context, std::uint32_t color);
/// Edges are not softened, so that neighbours show no seam.
void FillBoxes(cairo_t* context, std::span<const PaintBox> boxes, std::uint32_t color);
void StrokeOutline(cairo_t* context, const PaintOutline& outline);
void StrokeLine(cairo_t* context, PaintPoint start, PaintPoint end, std::uint32_t color);

}  // namespace desk
