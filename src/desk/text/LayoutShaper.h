#pragma once

#include <set>
#include <string>
#include <string_view>

#include "desk/text/FontCache.h"
#include "desk/text/LayoutText.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/WholeLetters.h"

namespace desk {

/// Lays out a line of any text with Pango: several scripts, both directions, fallback fonts.
class LayoutShaper {
public:
    explicit LayoutShaper(PangoContext* context);

    /// Shapes the line. Returns its width in 1/1024 point, which does not depend on the side.
    GlyphUnits Shape(const ResolvedFont& font, std::string_view line,
                     LeaderSide leader = LeaderSide::Reading);

    /// Adds the line shaped last, on a baseline.
    void Place(PlacedGlyphs& into, Baseline baseline);

    /// Characters that no font has, in all lines shaped so far.
    const std::set<char32_t>& Missing() const { return missing_; }

private:
    PangoLayoutLine* ShapeText();

    GObjectHandle<PangoLayout> layout_;
    WholeLetters wholeLetters_;
    const ResolvedFont* font_ = nullptr;
    std::string text_;  ///< Text of the line shaped last.
    std::set<char32_t> missing_;
};

}  // namespace desk
