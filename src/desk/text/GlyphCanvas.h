#pragma once

#include <cmath>
#include <numbers>
#include <pango/pango.h>

#include "desk/text/GlyphLine.h"

namespace desk {

/// Position of the left end of a baseline, in points, Y downward, and its rotation in degrees
/// counter-clockwise.
struct Baseline {
    double x = 0, y = 0;
    double angle = 0;
};

/// Returns the baseline that starts at an offset from another one, in that one's rotated axes.
inline Baseline Along(const Baseline& from, double right, double down) {
    if (from.angle == 0) return {from.x + right, from.y + down, 0};
    const double radians = from.angle * std::numbers::pi / 180;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return {from.x + right * c + down * s, from.y + down * c - right * s, from.angle};
}

/// Shows glyphs in its current colour.
class GlyphCanvas {
public:
    virtual ~GlyphCanvas() = default;

    virtual void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) = 0;

    /// Shows glyphs that are still batched.
    virtual void FinishGlyphs() = 0;
};

}  // namespace desk
