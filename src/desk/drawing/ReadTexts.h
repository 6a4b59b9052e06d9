#pragma once

#include <string>
#include <vector>

#include "desk/drawing/Canvas.h"
#include "desk/drawing/TextReader.h"
#include "desk/text/PlacedGlyphs.h"

namespace desk {

/// Texts of a page whose parts have meanings, until they are shown.
class ReadTexts {
public:
    /// Adds a text whose glyphs are the given lines of a collection.
    void Add(std::string_view text, std::span<const TextPart> parts, std::size_t firstLine,
             std::size_t endLine);
    void Clear();

    /// Shows the texts from first to end, exclusive, each part after its meaning is set.
    void Show(Canvas& canvas, const PlacedGlyphs& lines, std::size_t first, std::size_t end) const;

    std::size_t Count() const { return texts_.size(); }

private:
    struct Text {
        std::size_t firstByte, endByte, firstPart, endPart, firstLine, endLine;
    };

    std::vector<Text> texts_;
    std::string bytes_;
    std::vector<TextPart> parts_;
};

}  // namespace desk
