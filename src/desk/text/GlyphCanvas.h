#pragma once

#include <cmath>
#include <numbers>
#include <pango/pango.h>

#include "desk/text/GlyphLine.h"

namespace desk {

/// Where the left end of a baseline lies, in points, Y downward, and how it is turned about it, in
/// degrees counter-clockwise.
struct Baseline {
    double x = 0, y = 0;
    double angle = 0;
};

/// The baseline that begins at a place seen from the begin of another one and turned with it.
inline Baseline Along(const Baseline& from, double right, double down) {
    if (from.angle == 0) return {from.x + right, from.y + down, 0};
    const double radians = from.angle * std::numbers::pi / 180;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    return {from.x + right * c + down * s, from.y + down * c - right * s, from.angle};
}

/// Shows glyphs, in the colour that it has.
class GlyphCanvas {
public:
    virtual ~GlyphCanvas() = default;

    virtual void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) = 0;

    /// Shows what may be held back.
    virtual void FinishGlyphs() = 0;
};

}  // namespace desk
