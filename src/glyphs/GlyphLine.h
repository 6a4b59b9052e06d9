#pragma once

#include <cmath>
#include <cstdint>
#include <hb.h>
#include <numbers>
#include <span>
#include <string_view>

/// Positioned glyphs with the text that they represent: what a text engine makes, and what a page
/// shows.
namespace glyphs {

/// Widths and positions in 1/1024 point. 32 bits would overflow in long lines of large type.
using GlyphUnits = std::int64_t;
inline constexpr double kGlyphUnitsPerPoint = 1024;

constexpr double Points(GlyphUnits units) {
    return static_cast<double>(units) / kGlyphUnitsPerPoint;
}

struct Glyph {
    hb_codepoint_t id = 0;
    GlyphUnits x = 0;  ///< From the left end of the baseline.
    int y = 0;         ///< Downward from the baseline.
    /// Bytes of text that this glyph represents together with the following glyphs whose bytes are
    /// 0: ligatures combine letters, and a letter may need several glyphs.
    unsigned bytes = 0;
    /// Number of repetitions, each a step further right and with its own text: the dots of a
    /// leader, which are half of the glyphs of an index.
    unsigned count = 1;
    int step = 0;
};

/// The glyphs of a line, or of a part of one in one font, and their text.
struct GlyphLine {
    std::span<const Glyph> glyphs;
    std::string_view text;
};

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

}  // namespace glyphs
