#pragma once

#include <pango/pango.h>
#include <string>

#include "desk/drawing/pdf/ObjectFile.h"

namespace desk::pdf {

/// A glyph that a font has as pixels, such as a coloured sign.
class GlyphPicture {
public:
    /// Lengths are thousandths of the font's size, each so many points.
    GlyphPicture(PangoFont* font, PangoGlyph glyph, double thousandth);

    /// Writes the pixels, and returns the number of their object.
    int WritePixels(ObjectFile& file) const;

    /// What shows the pixels under a name in place of the glyph.
    std::string Stream(double width, const std::string& name) const;

private:
    int left_, top_, width_, height_;  ///< Pixels from the glyph's origin, Y downward.
    std::string colors_;               ///< Red, green and blue of each pixel,
    std::string opacities_;            ///< and how much it covers.
};

}  // namespace desk::pdf
