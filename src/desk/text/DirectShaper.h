#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "desk/text/FontCache.h"
#include "desk/text/RunShaper.h"
#include "desk/text/ShapedRunCache.h"

namespace desk {

/// Shapes plain lines with the same result as LayoutShaper, using only the requested font. A line
/// is cut into words, each of which is shaped once, and a leader of repeated dots. Where the font
/// has rules across blanks or along a leader, the line or the leader is shaped in one piece.
class DirectShaper {
public:
    explicit DirectShaper(ShapedRunCache& cache) : cache_(cache) {}

    /// Width of a line in 1024ths of a point. Nothing for a line that is not plain.
    std::optional<GlyphUnits> Width(const ResolvedFont& font, std::string_view line);

    /// Adds the glyphs of a line as well.
    std::optional<GlyphUnits> Place(const ResolvedFont& font, std::string_view line,
                                    GlyphStore& glyphs);

private:
    /// A font in one class of writing, and where its lines can be cut.
    struct ScriptFont {
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

    const ScriptFont& FontFor(const ResolvedFont& font, PlainClass script, std::string_view line);
    void TryLeader(ScriptFont& scriptFont);
    void TryBlanks(const ResolvedFont& font, ScriptFont& scriptFont);
    const ShapedRun& FindInLine(const ScriptFont& scriptFont, std::string_view line,
                                std::size_t start, std::size_t end);
    const ShapedRun* FindAlone(const ScriptFont& scriptFont, std::string_view line,
                               std::size_t start, std::size_t end);
    template <class Visitor>
    std::optional<GlyphUnits> Walk(const ResolvedFont& font, std::string_view line,
                                   const Visitor& visit);

    ShapedRunCache& cache_;
    LastLeader last_;
    RunShaper shaper_;
    std::vector<ScriptFont> fonts_;  ///< By the fonts' numbers, and by class.
    std::string between_;            ///< Scratch text: a word between blanks.
};

}  // namespace desk
