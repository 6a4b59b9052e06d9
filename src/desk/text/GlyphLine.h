#pragma once

#include <cstddef>
#include <cstdint>
#include <hb.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Widths of lines and places of glyphs in them, in 1024ths of a point. Of 32 bits they would be
/// too short for a text of some thousand characters in the largest type.
using GlyphUnits = std::int64_t;
inline constexpr double kGlyphUnitsPerPoint = 1024;

/// Units as points.
constexpr double Points(GlyphUnits units) {
    return static_cast<double>(units) / kGlyphUnitsPerPoint;
}

struct Glyph {
    hb_codepoint_t id = 0;
    GlyphUnits x = 0;  ///< From the left end of the baseline.
    int y = 0;         ///< Downward from it.
    /// How many bytes of the text this glyph stands for, together with those after it that have
    /// none: letters may join in a glyph, and a letter may take several.
    unsigned bytes = 0;
    /// How many of it follow each other, each a step to the right of the one before and with a text
    /// of its own: the dots of a leader, which are half of the glyphs of an index.
    unsigned count = 1;
    int step = 0;
};

/// The glyphs of a line, or of a part of one in one font, with the text that they stand for.
struct GlyphLine {
    std::span<const Glyph> glyphs;
    std::string_view text;
};

/// Where the glyphs of lines are gathered, one line behind the other.
class GlyphStore {
public:
    struct Place {
        std::size_t glyphs = 0, bytes = 0;
    };

    /// Adds a glyph that stands for some bytes of a text that follows.
    void Add(hb_codepoint_t id, GlyphUnits x, int y, std::size_t bytes) {
        glyphs_.push_back({id, x, y, static_cast<unsigned>(bytes)});
    }
    /// Repeats the last glyph, each with as many bytes.
    void Repeat(std::size_t count, int step) {
        if (count == 0) return;
        glyphs_.back().count += static_cast<unsigned>(count);
        glyphs_.back().step = step;
    }
    /// Tells that the last glyphs stand for so many bytes together.
    void Join(std::size_t glyphs, std::size_t bytes) {
        glyphs_[glyphs_.size() - glyphs].bytes = static_cast<unsigned>(bytes);
    }
    void AddText(std::string_view text) { text_ += text; }

    Place End() const { return {glyphs_.size(), text_.size()}; }
    /// Drops what was added behind a place.
    void CutBack(const Place& place) {
        glyphs_.resize(place.glyphs);
        text_.resize(place.bytes);
    }

    /// What was added between two places. It stands until something is added or dropped.
    GlyphLine Line(const Place& first, const Place& end) const {
        return {std::span(glyphs_).subspan(first.glyphs, end.glyphs - first.glyphs),
                std::string_view(text_).substr(first.bytes, end.bytes - first.bytes)};
    }

private:
    std::vector<Glyph> glyphs_;
    std::string text_;
};

}  // namespace desk
