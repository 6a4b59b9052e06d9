#pragma once

#include <pango/pango.h>
#include <vector>

#include "desk/text/GlyphCanvas.h"
#include "desk/text/Handles.h"

namespace desk {

/// Texts whose glyphs have their places, so that they can be shown.
class PlacedGlyphs {
public:
    /// Where the glyphs of the next line are put.
    GlyphStore& Glyphs() { return glyphs_; }
    /// Ends a line, or a part of one in one font, of the glyphs that were put there since the last.
    void EndLine(PangoFont* font, const Baseline& baseline);

    std::size_t LineCount() const { return lines_.size(); }

    /// Shows lines from the first to the one before the end.
    void Show(GlyphCanvas& canvas, std::size_t first, std::size_t end) const;

    void Clear();

private:
    struct Line {
        PangoFont* font;
        Baseline baseline;
        GlyphStore::Place first, end;
    };

    GlyphStore glyphs_;
    std::vector<Line> lines_;
    std::vector<GObjectHandle<PangoFont>> fonts_;  ///< Holds those of the lines.
};

}  // namespace desk
