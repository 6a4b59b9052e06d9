#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "glyphs/GlyphLine.h"

namespace desk {

using glyphs::Glyph;
using glyphs::GlyphLine;
using glyphs::GlyphUnits;
using glyphs::kGlyphUnitsPerPoint;
using glyphs::Points;

/// Collects the glyphs of lines, one after another.
class GlyphStore {
public:
    struct Place {
        std::size_t glyphs = 0, bytes = 0;
    };

    /// Adds a glyph for the given number of bytes of text, which is added later.
    void Add(hb_codepoint_t id, GlyphUnits x, int y, std::size_t bytes) {
        glyphs_.push_back({id, x, y, static_cast<unsigned>(bytes)});
    }
    /// Repeats the last glyph, each with the same number of bytes.
    void Repeat(std::size_t count, int step) {
        if (count == 0) return;
        glyphs_.back().count += static_cast<unsigned>(count);
        glyphs_.back().step = step;
    }
    /// Makes the last glyphs represent the given bytes together.
    void Join(std::size_t glyphs, std::size_t bytes) {
        glyphs_[glyphs_.size() - glyphs].bytes = static_cast<unsigned>(bytes);
    }
    void AddText(std::string_view text) { text_ += text; }

    Place End() const { return {glyphs_.size(), text_.size()}; }
    /// Removes everything added after a position.
    void CutBack(const Place& place) {
        glyphs_.resize(place.glyphs);
        text_.resize(place.bytes);
    }

    /// Returns what was added between two positions. Valid until the next change.
    GlyphLine Line(const Place& first, const Place& end) const {
        return {std::span(glyphs_).subspan(first.glyphs, end.glyphs - first.glyphs),
                std::string_view(text_).substr(first.bytes, end.bytes - first.bytes)};
    }

private:
    std::vector<Glyph> glyphs_;
    std::string text_;
};

}  // namespace desk
