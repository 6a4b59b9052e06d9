#pragma once

#include <cstdint>
#include <string>

#include "glyphs/GlyphLine.h"
#include "pdf/fonts/FontSet.h"

namespace pdf {

/// The text objects of a page, and the font and the place that are set in them.
class TextState {
public:
    explicit TextState(std::string& out) : out_(out) {}

    /// Begins a text object, if there is none.
    void Begin();
    /// Ends the text object, so that other content can follow.
    void End();

    /// Sets the font of the strings that follow; the size is in points.
    void UseFont(const Subset& subset, double points);

    /// Moves to a place of a baseline, in points from the left end. Returns how far the string then
    /// stands from there, in points along the baseline: places have few decimals.
    double MoveTo(const FontUse& font, const glyphs::Baseline& baseline, double x, double y);

private:
    double PlaceUpright(double x, double y);
    void PlaceShaped(const FontUse& font, double angle, double x, double y);

    std::string& out_;
    bool inTexts_ = false;
    int fontName_ = -1;
    double fontPoints_ = 0;
    bool upright_ = true;                 ///< Texts are parallel to the page.
    std::int64_t lineX_ = 0, lineY_ = 0;  ///< Start of the last string, in units of a position.
};

}  // namespace pdf
