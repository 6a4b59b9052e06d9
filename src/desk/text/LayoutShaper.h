#pragma once

#include <set>
#include <string>
#include <string_view>

#include "desk/text/FontCache.h"
#include "desk/text/LayoutText.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/WholeLetters.h"

namespace desk {

/// Lays out a line of any text: several scripts, both directions, fallback to other fonts.
class LayoutShaper {
public:
    explicit LayoutShaper(PangoContext* context);

    /// Shapes the line. Returns its width in 1024ths of a point, which is the same for either side.
    GlyphUnits Shape(const ResolvedFont& font, std::string_view line,
                     LeaderSide leader = LeaderSide::Reading);

    /// Puts the line shaped last on a baseline.
    void Place(PlacedGlyphs& into, Baseline baseline);

    /// Characters in the lines placed so far that no font has.
    const std::set<char32_t>& Missing() const { return missing_; }

private:
    PangoLayoutLine* ShapeText();

    GObjectHandle<PangoLayout> layout_;
    WholeLetters wholeLetters_;
    const ResolvedFont* font_ = nullptr;
    std::string text_;  ///< Of the line shaped last.
    std::set<char32_t> missing_;
};

}  // namespace desk
