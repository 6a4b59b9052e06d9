#pragma once

#include <variant>
#include <vector>

#include "desk/drawing/Canvas.h"
#include "desk/drawing/ReadTexts.h"
#include "desk/text/PlacedGlyphs.h"
#include "desk/text/TextEngine.h"

namespace desk {

/// The bounds of the pending texts and outlines of a page. Each rectangle is tested against some
/// hundred of them, so bounds are grouped into blocks, most of which are skipped after one
/// comparison.
class InkBounds {
public:
    void Add(const PaintBox& box);
    void Clear();

    /// Returns whether any bounds overlap the box.
    bool Overlap(const PaintBox& box) const;

private:
    std::vector<PaintBox> bounds_;
    std::vector<PaintBox> blocks_;  ///< Each encloses a fixed number of bounds.
};

/// Paints rectangles, texts and outlines as if in order, but merges rectangles of the same colour
/// into one path where the result is the same. Adjacent rectangles then show no seam in any viewer,
/// and a page has few colour changes. A rectangle that only touches an outline's box does not count
/// as covering it.
class PaintQueue {
public:
    PaintQueue(Canvas& canvas, TextEngine& engine) : canvas_(canvas), engine_(engine) {}

    void Fill(const PaintBox& box, const pdf::Color& color);
    /// The parts tell what the text means; without any it has no meaning of its own.
    void Draw(const PlacedText& text, const pdf::Color& color,
              std::span<const TextPart> parts = {});
    void Draw(const PaintOutline& outline);

    void Flush();

private:
    struct ColoredBoxes {
        pdf::Color color;
        std::vector<PaintBox> boxes;
    };
    struct ColoredTexts {
        pdf::Color color;
        std::size_t first, end;  ///< Range of lines in texts_, or of texts in readTexts_.
        bool areRead;
    };

    ColoredBoxes& PlaceFor(const PaintBox& box, const pdf::Color& color);
    void Paint(const ColoredTexts& texts);
    void Paint(const PaintOutline& outline) { canvas_.Stroke(outline); }

    Canvas& canvas_;
    TextEngine& engine_;
    // Pending: rectangles by colour, then all texts and outlines in order.
    std::vector<ColoredBoxes> fills_;
    std::vector<std::variant<ColoredTexts, PaintOutline>> drawings_;
    PlacedGlyphs texts_;
    ReadTexts readTexts_;
    InkBounds inkBounds_;  ///< Bounds of drawings_.
};

}  // namespace desk
