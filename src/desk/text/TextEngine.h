#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/Symbols.h"

namespace desk {

/// A font as a symbol asks for it.
struct FontSpec {
    std::string family;
    double points = 10;
    bool bold = false;
    bool operator==(const FontSpec&) const = default;
};

/// A FontSpec that an engine has found the font of.
struct ResolvedFont;

class GlyphCanvas;
class PlacedGlyphs;

/// How a text hangs on its point. The numbers are those of host::IHostTextSymbol; a justified text
/// stands like one at the left. The baseline is that of the last line.
struct TextPlacement {
    int horizontal = 0;
    int vertical = 0;
    double angle = 0;  ///< Degrees, counter-clockwise.
};

/// An upright box in points, seen from the point that its text hangs on, Y downward.
struct TextBox {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// A text that hangs on a point.
struct PlacedText {
    const ResolvedFont* font = nullptr;
    std::string_view text;
    TextPlacement placement;
    double x = 0, y = 0;
};

/// A family that was asked for and the one that stands in for it.
struct FontSubstitution {
    std::string wanted;
    std::string used;
};

/// Shapes, measures and draws text: any script, both directions, with font fallback. Sizes are
/// unhinted, so that they do not depend on any resolution. They do not depend on the user's
/// language either. Not safe for use by two threads.
///
/// A line is as high as the ascent and descent of the font asked for, whatever fonts stand in for
/// characters that it lacks: baselines stay even, and a higher character hangs over its line. Each
/// line takes its base direction from its first letter; alignment is always that of the page, and a
/// leader runs on to the right from a line that hangs on its left edge, in either direction.
/// Letters and their combining marks are in one font.
class TextEngine {
public:
    /// How sizes are found: every one by a full layout, or by whatever gives the same sooner. The
    /// plain way is there to compare with.
    enum class Ways { Plain, Quick };

    explicit TextEngine(Ways ways = Ways::Quick);
    ~TextEngine();

    /// The font that a spec leads to; it stays valid for the engine's life. Equal specs have one.
    const ResolvedFont& Find(const FontSpec& spec);

    /// Size in points, by the promises of host::IHostTextSymbol::MeasureText. Each LF begins a new
    /// line, also at the end of the text.
    host::TextExtent Measure(const ResolvedFont& font, std::string_view text);
    host::TextExtent Measure(const FontSpec& spec, std::string_view text) {
        return Measure(Find(spec), text);
    }

    /// Sets a text, so that it can be shown: the box that Measure tells hangs on its point as its
    /// placement says. Returns the smallest upright box around that box, seen from the point.
    TextBox Set(const PlacedText& text, PlacedGlyphs& into);

    /// Sets a text and shows it.
    void Draw(GlyphCanvas& canvas, const PlacedText& text);

    /// Families that were asked for so far and are not installed, in order of first use.
    std::vector<FontSubstitution> Substitutions() const;

    /// Characters that were set and that no installed font has, each shown as a box.
    const std::set<char32_t>& MissingCharacters() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace desk
