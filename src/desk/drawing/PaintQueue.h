#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "desk/drawing/Canvas.h"
#include "desk/drawing/InkBounds.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// Paints rectangles and texts as if each came right after the one before, but gathers the
/// rectangles of one colour into a single path wherever none can tell the difference. Neighbours of
/// one colour then show no seam, however they are rendered, and a page takes few changes of state.
/// An outline is not counted as hidden by a rectangle that merely touches its box.
class PaintQueue {
public:
    PaintQueue(Canvas& canvas, TextEngine& engine) : canvas_(canvas), engine_(engine) {}

    // Colours are 0xBBGGRR.
    void Fill(const PaintBox& box, std::uint32_t color);
    void Draw(const PlacedText& text, std::uint32_t color);
    void Draw(const PaintOutline& outline);

    /// Paints what is still held back.
    void Flush();

private:
    struct ColoredBoxes {
        std::uint32_t color;
        std::vector<PaintBox> boxes;
    };
    struct ColoredTexts {
        std::uint32_t color;
        std::size_t first, end;  ///< Of the lines of texts.
    };

    ColoredBoxes& PlaceFor(const PaintBox& box, std::uint32_t color);
    void Paint(const ColoredTexts& texts);
    void Paint(const PaintOutline& outline) { canvas_.Stroke(outline); }

    Canvas& canvas_;
    TextEngine& engine_;
    // What is held back: rectangles, colour by colour, and above them all drawings in their order.
    std::vector<ColoredBoxes> fills_;
    std::vector<std::variant<ColoredTexts, PaintOutline>> drawings_;
    PlacedGlyphs texts_;
    InkBounds inkBounds_;  ///< Of all drawings.
};

}  // namespace desk
