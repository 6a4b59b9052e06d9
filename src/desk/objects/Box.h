#pragma once

#include <limits>

#include "host/Symbols.h"

namespace desk {

/// An upright rectangle as plain values, inches. Nothing at first.
struct Box {
    double xmin = std::numeric_limits<double>::infinity();
    double ymin = std::numeric_limits<double>::infinity();
    double xmax = -std::numeric_limits<double>::infinity();
    double ymax = -std::numeric_limits<double>::infinity();

    bool operator==(const Box&) const = default;
    bool IsEmpty() const { return xmin > xmax || ymin > ymax; }
    void Include(const Box& other);
};

/// The box of a text around its point at (0, 0), Y upward: the extent (points) hung by the
/// placements of host::IHostTextSymbol, then turned by the angle (degrees, counter-clockwise) and
/// framed upright again. The baseline, of which an extent does not tell, counts as the lower edge.
Box HangingBox(const host::TextExtent& extent, int horizontal, int vertical, double angle);

}  // namespace desk
