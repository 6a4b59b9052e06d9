#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "desk/drawing/Canvas.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// The ink bounds of drawings that are held back on a page. Rectangles of a page ask some hundred
/// times each, so bounds are grouped into blocks: most blocks are skipped after one comparison.
class InkBounds {
public:
    void Add(const PaintBox& box);
    void Clear();

    /// Whether a drawing overlaps the box.
    bool Overlap(const PaintBox& box) const;

private:
    std::vector<PaintBox> bounds_;
    std::vector<PaintBox> blocks_;  ///< Each around a fixed number of bounds.
};

/// Paints rectangles, texts and outlines with the same result as one after another, but gathers
/// rectangles of one colour into a single path where the order makes no difference. Neighbours of
/// one colour then show no seam in any viewer, and a page takes few changes of colour. A rectangle
/// that merely touches the box of an outline does not count as covering it.
class PaintQueue {
public:
    PaintQueue(Canvas& canvas, TextEngine& engine) : canvas_(canvas), engine_(engine) {}

    // Colours are 0xBBGGRR.
    void Fill(const PaintBox& box, std::uint32_t color);
    void Draw(const PlacedText& text, std::uint32_t color);
    void Draw(const PaintOutline& outline);

    /// Paints all that is held back.
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
    // Held back: rectangles by colour, and above them all texts and outlines in their order.
    std::vector<ColoredBoxes> fills_;
    std::vector<std::variant<ColoredTexts, PaintOutline>> drawings_;
    PlacedGlyphs texts_;
    InkBounds inkBounds_;  ///< Of all drawings.
};

}  // namespace desk
