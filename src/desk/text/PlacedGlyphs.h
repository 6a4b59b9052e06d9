#pragma once

#include <pango/pango.h>
#include <vector>

#include "desk/text/GlyphCanvas.h"
#include "desk/text/Handles.h"

namespace desk {

/// Positioned glyphs of texts, ready to be shown.
class PlacedGlyphs {
public:
    /// Receives the glyphs of the next line.
    GlyphStore& Glyphs() { return glyphs_; }
    /// Ends a line, or a part of one in one font, with the glyphs added since the last call.
    void EndLine(PangoFont* font, const Baseline& baseline);

    std::size_t LineCount() const { return ranges_.size(); }

    /// A line, or a part of one in one font.
    struct Line {
        PangoFont* font;
        Baseline baseline;
        GlyphLine glyphs;
    };
    /// Valid until the next change.
    Line At(std::size_t index) const {
        const Range& range = ranges_[index];
        return {range.font, range.baseline, glyphs_.Line(range.first, range.end)};
    }

    /// Shows the lines from first to end, exclusive.
    void Show(GlyphCanvas& canvas, std::size_t first, std::size_t end) const;

    void Clear();

private:
    struct Range {
        PangoFont* font;
        Baseline baseline;
        GlyphStore::Place first, end;
    };

    GlyphStore glyphs_;
    std::vector<Range> ranges_;
    std::vector<GObjectHandle<PangoFont>> fonts_;  ///< Keeps the fonts of the lines alive.
};

}  // namespace desk
