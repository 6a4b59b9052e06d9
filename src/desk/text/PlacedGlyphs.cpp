#include "desk/text/PlacedGlyphs.h"

namespace desk {

void PlacedGlyphs::EndLine(PangoFont* font, const Baseline& baseline) {
    if (fonts_.empty() || fonts_.back().get() != font)
        fonts_.emplace_back(static_cast<PangoFont*>(g_object_ref(font)));
    const auto first = ranges_.empty() ? GlyphStore::Place{} : ranges_.back().end;
    ranges_.push_back({font, baseline, first, glyphs_.End()});
}

void PlacedGlyphs::Show(GlyphCanvas& canvas, std::size_t first, std::size_t end) const {
    for (std::size_t i = first; i < end; ++i) {
        const Line line = At(i);
        canvas.Show(line.font, line.glyphs, line.baseline);
    }
    canvas.FinishGlyphs();
}

void PlacedGlyphs::Clear() {
    glyphs_.CutBack({});
    ranges_.clear();
    fonts_.clear();
}

}  // namespace desk
