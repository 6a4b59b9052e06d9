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
        bool cutsLeaders = false;
        bool blanksTried = false;  ///< As soon as a line has any, since the trial is a long line.
        bool cutsAtBlanks = false;
        GlyphUnits blankWidth = 0;
        RunGlyph blankGlyph{};

        ShapedRun Blank() const { return {blankWidth, {&blankGlyph, 1}, true}; }
    };
    /// The line with a leader that was measured last, without the dots behind its runs. It is
    /// measured with one number of dots after another.
    struct LastLeader {
        std::uint32_t font = 0;
        std::string text;
        GlyphUnits width = 0;
        int dotStep = 0;  ///< What each further dot adds.
    };

    const Hand& HandOf(const ResolvedFont& font, PlainClass script, std::string_view line);
    void TryLeader(Hand& hand);
    void TryBlanks(const ResolvedFont& font, Hand& hand);
    const ShapedRun& FindInLine(const Hand& hand, std::string_view line, std::size_t start,
                                std::size_t end);
    const ShapedRun* FindAlone(const Hand& hand, std::string_view line, std::size_t start,
                               std::size_t end);
    template <class Visitor>
    std::optional<GlyphUnits> Walk(const ResolvedFont& font, std::string_view line,
                                   const Visitor& visit);

    RunMemory& memory_;
    LastLeader last_;
    RunShaper shaper_;
    std::vector<Hand> hands_;  ///< By the fonts' numbers, and by class.
    std::string between_;      ///< Scratch text: a word between blanks.
};

}  // namespace desk
