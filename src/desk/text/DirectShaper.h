#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/RunMemory.h"
#include "desk/text/RunShaper.h"

namespace desk {

/// Shapes lines of plain text in one font, with the same result as LayoutShaper. A line is split
/// into words, each shaped once and cached, and a leader that repeats the last word's dots. In
/// fonts with rules across blanks or along leaders, these are not split.
class DirectShaper {
public:
    explicit DirectShaper(RunMemory& memory) : memory_(memory) {}

    /// Returns the width of a line in 1/1024 point; nothing if the line is not plain.
    std::optional<GlyphUnits> Width(const ResolvedFont& font, std::string_view line);

    /// The same; also adds the glyphs of the line.
    std::optional<GlyphUnits> Place(const ResolvedFont& font, std::string_view line,
                                    GlyphStore& glyphs);

private:
    /// A font for one class of writing, and where its lines can be split.
    struct Hand {
        hb_font_t* font = nullptr;  ///< Null until Learn has filled the entry.
        std::uint32_t fontNumber = 0;
        PlainClass script = PlainClass::None;
        Writing writing;
        bool cutsAtBlanks = false;
        bool cutsLeaders = false;
        GlyphUnits blankWidth = 0;
        RunGlyph blankGlyph{};

        ShapedRun Blank() const { return {blankWidth, {&blankGlyph, 1}, true}; }
    };
    /// The line measured last. Fitting a text measures lines with the same beginning in a row.
    class LastLine {
    public:
        struct Place {
            std::size_t start = 0;
            GlyphUnits x = 0;
        };
        /// Returns the width of the line followed by this number of dots, if it is the last line
        /// and the width is known.
        std::optional<GlyphUnits> Width(std::uint32_t font, std::string_view line,
                                        std::size_t dots) const {
            if (!width_ || font != font_ || line != text_) return std::nullopt;
            if (dots > 0 && dotStep_ == 0) return std::nullopt;
            return *width_ + static_cast<GlyphUnits>(dots) * dotStep_;
        }
        /// Returns the start of the first word of the next line that differs.
        Place Skip(std::uint32_t font, PlainClass script, std::string_view line);
        /// Adds a word of that line, including the blank before it.
        void Add(const Place& word) { words_.push_back(word); }
        /// Stores the line's width and the advance of each further dot; 0 if unknown.
        void End(GlyphUnits width, int dotStep) {
            width_ = width;
            dotStep_ = dotStep;
        }

    private:
        std::uint32_t font_ = 0;
        PlainClass script_ = PlainClass::None;
        std::string text_;
        std::vector<Place> words_;
        std::optional<GlyphUnits> width_;
        int dotStep_ = 0;
    };

    const Hand& HandOf(const ResolvedFont& font, PlainClass script);
    void Learn(const ResolvedFont& font, Hand& hand);
    const ShapedRun& FindInLine(const Hand& hand, std::string_view line, std::size_t start,
                                std::size_t end);
    const ShapedRun* FindAlone(const Hand& hand, std::string_view line, std::size_t start,
                               std::size_t end);
    template <class Visitor>
    std::optional<GlyphUnits> Walk(const ResolvedFont& font, std::string_view line, LastLine* last,
                                   const Visitor& visit);

    RunMemory& memory_;
    LastLine last_;
    RunShaper shaper_;
    std::vector<Hand> hands_;  ///< By font number and class.
    std::string between_;      ///< Buffer for a word between blanks.
};

}  // namespace desk
