#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/Symbols.h"

namespace desk {

/// A font as requested by a symbol.
struct FontSpec {
    std::string family;
    double points = 10;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontSpec&) const = default;
};

/// The font of a FontSpec (FontCache.h).
struct ResolvedFont;

class GlyphCanvas;
class PlacedGlyphs;

/// Placement of a text at its point. The numbers are those of host::IHostTextSymbol; justified text
/// is left-aligned. Baseline means the last line's.
struct TextPlacement {
    int horizontal = 0;
    int vertical = 0;
    double angle = 0;  ///< Degrees, counter-clockwise.
};

/// An upright box in points, relative to the text's point, Y downward.
struct TextBox {
    double left = 0, top = 0, right = 0, bottom = 0;
};

/// A text at a point, in points, Y downward.
struct PlacedText {
    const ResolvedFont* font = nullptr;
    std::string_view text;
    TextPlacement placement;
    double x = 0, y = 0;
};

/// A requested family and the one used instead.
struct FontSubstitution {
    std::string wanted;
    std::string used;
};

/// Shapes, measures and draws text: any script, both directions, with font fallback. Sizes are
/// unhinted and depend neither on the resolution nor on the user's language. Must be used by one
/// thread.
///
/// The height of a line is the ascent and descent of the requested font, also with fallback fonts:
/// baselines stay even, and a taller character exceeds its line. Each line takes its base direction
/// from its first letter. Alignment is relative to the page; the leader of a left-aligned line
/// continues to the right in either direction. A letter and its combining marks are in one font.
class TextEngine {
public:
    /// How sizes are computed: always with a full layout, for comparison in tests, or with a faster
    /// method that has the same result.
    enum class Measuring { FullLayout, Fast };

    explicit TextEngine(Measuring measuring = Measuring::Fast);
    ~TextEngine();

    /// Returns the font of a spec, valid while the engine exists. Equal specs give the same font.
    const ResolvedFont& Find(const FontSpec& spec);

    /// Returns the size in points, as specified by host::IHostTextSymbol::MeasureText. Each LF
    /// starts a line, also at the end of the text.
    host::TextExtent Measure(const ResolvedFont& font, std::string_view text);
    host::TextExtent Measure(const FontSpec& spec, std::string_view text) {
        return Measure(Find(spec), text);
    }

    /// Adds a text's glyphs, positioned so that the box that Measure returns is placed at its
    /// point. Returns the smallest upright box around that box, relative to the point.
    TextBox Set(const PlacedText& text, PlacedGlyphs& into);

    /// Shows a text at once.
    void Draw(GlyphCanvas& canvas, const PlacedText& text);

    /// Requested families that are not installed, in order of first use.
    std::vector<FontSubstitution> Substitutions() const;

    /// Characters without a font in the texts measured or set so far; each is shown as a box.
    const std::set<char32_t>& MissingCharacters() const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace desk
