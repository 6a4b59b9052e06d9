#pragma once

#include <cstddef>
#include <cstdint>
#include <hb.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace desk {

/// Widths and positions in 1/1024 point. 32 bits would overflow in long lines of large type.
using GlyphUnits = std::int64_t;
inline constexpr double kGlyphUnitsPerPoint = 1024;

constexpr double Points(GlyphUnits units) {
    return static_cast<double>(units) / kGlyphUnitsPerPoint;
}

struct Glyph {
    hb_codepoint_t id = 0;
    GlyphUnits x = 0;  ///< From the left end of the baseline.
    int y = 0;         ///< Downward from the baseline.
    /// Bytes of text that this glyph represents together with the following glyphs whose bytes are
    /// 0: ligatures combine letters, and a letter may need several glyphs.
    unsigned bytes = 0;
    /// Number of repetitions, each a step further right and with its own text: the dots of a
    /// leader, which are half of the glyphs of an index.
    unsigned count = 1;
    int step = 0;
};

/// The glyphs of a line, or of a part of one in one font, and their text.
struct GlyphLine {
    std::span<const Glyph> glyphs;
    std::string_view text;
};

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
