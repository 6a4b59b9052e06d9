#pragma once

#include "desk/text/DirectShaper.h"
#include "desk/text/LayoutShaper.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// Positions the glyphs of texts.
class TextSetter {
public:
    TextSetter(DirectShaper& direct, LayoutShaper& layout) : direct_(direct), layout_(layout) {}

    /// Adds the glyphs of a text. Returns its size in points.
    host::TextExtent Set(const PlacedText& placed, PlacedGlyphs& into);

private:
    host::TextExtent SetLines(const PlacedText& placed, std::string_view text, PlacedGlyphs& into);
    double SetLine(const PlacedText& placed, std::string_view line, double down,
                   PlacedGlyphs& into);

    DirectShaper& direct_;
    LayoutShaper& layout_;
};

}  // namespace desk
