#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/RunMemory.h"
#include "desk/text/RunShaper.h"

namespace desk {

/// Sets lines of plain text with their font alone, as LayoutShaper does. A line is cut into words,
/// each of which is shaped once, and a leader that repeats the dots of the last one. A font with
/// rules that reach over a blank, or along a leader, has those left whole.
class DirectShaper {
public:
    explicit DirectShaper(RunMemory& memory) : memory_(memory) {}

    /// Width of a line in 1024ths of a point. Nothing for a line that is not plain.
    std::optional<GlyphUnits> Width(const ResolvedFont& font, std::string_view line);

    /// Adds the glyphs of a line as well.
    std::optional<GlyphUnits> Place(const ResolvedFont& font, std::string_view line,
                                    GlyphStore& glyphs);

private:
    /// A font in one class of writing, and where its lines can be cut.
    struct Hand {
        hb_font_t* font = nullptr;  ///< Null until it is known.
        std::uint32_t fontNumber = 0;
        PlainClass script = PlainClass::None;
        Writing writing;
        bool cutsAtBlanks = false;
        bool cutsLeaders = false;
        GlyphUnits blankWidth = 0;
        RunGlyph blankGlyph{};

        ShapedRun Blank() const { return {blankWidth, {&blankGlyph, 1}, true}; }
    };
    /// The line measured last. Fitting a text measures lines that begin alike, one after another.
    class LastLine {
    public:
        struct Place {
            std::size_t start = 0;
            GlyphUnits x = 0;
        };
        /// Width of the line with so many dots behind it, if it is this one and that is known.
        std::optional<GlyphUnits> Width(std::uint32_t font, std::string_view line,
                                        std::size_t dots) const {
            if (!width_ || font != font_ || line != text_) return std::nullopt;
            if (dots > 0 && dotStep_ == 0) return std::nullopt;
            return *width_ + static_cast<GlyphUnits>(dots) * dotStep_;
        }
        /// Where the first word begins that differs in the next line.
        Place Skip(std::uint32_t font, PlainClass script, std::string_view line);
        /// A further word of that line, with the blank before it.
        void Add(const Place& word) { words_.push_back(word); }
        /// Its width, and what each further dot adds; 0 where that is not known.
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
    std::vector<Hand> hands_;  ///< By the fonts' numbers, and by class.
    std::string between_;      ///< Scratch text: a word between blanks.
};

}  // namespace desk
