#pragma once

#include <pango/pango.h>

#include "desk/text/GlyphStore.h"

namespace desk {

using glyphs::Along;
using glyphs::Baseline;

/// Shows glyphs in its current colour.
class GlyphCanvas {
public:
    virtual ~GlyphCanvas() = default;

    virtual void Show(PangoFont* font, const GlyphLine& line, const Baseline& baseline) = 0;

    /// Shows glyphs that are still batched.
    virtual void FinishGlyphs() = 0;
};

}  // namespace desk
