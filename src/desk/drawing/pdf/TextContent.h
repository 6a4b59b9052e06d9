#pragma once

#include <cstdint>
#include <string>

#include "desk/drawing/pdf/FontSet.h"
#include "desk/text/GlyphCanvas.h"

namespace desk::pdf {

/// Writes the texts of a page's content. Every glyph is within kPlaceTolerance of its place, and
/// within kLeaderTolerance inside a leader, although many readers of the file accept widths in
/// whole thousandths of the font's size only.
class TextContent {
public:
    // Points. A dot of a printer of 2400 dots per inch measures 0.03.
    static constexpr double kPlaceTolerance = 0.01;
    static constexpr double kLeaderTolerance = 0.03;

    explicit TextContent(std::string& out) : out_(out) {}

    void Show(const FontUse& font, const GlyphLine& line, const Baseline& baseline);

    /// Ends the texts, so that something else can be drawn.
    void End();

private:
    /// A line while it is written.
    struct Pen {
        const FontUse& font;
        const Baseline& baseline;
        const Subset* subset = nullptr;
        double thousandth = 0;  ///< Points that a thousandth of the font's size moves the pen.
        double move = 0;        ///< Points of the smallest move.
        int decimals = 0;       ///< Decimals of the number of a move.
        double x = 0;           ///< Points from the left end of the baseline.
        int y = 0;              ///< As that of a glyph.
        bool open = false;      ///< Whether a string is being written.
        std::size_t start = 0;  ///< Where that string begins.
        bool moved = false;     ///< Whether it has moves of the pen in it.
    };

    void ShowCluster(Pen& pen, std::span<const Glyph> glyphs, std::string_view text);
    void ShowGlyph(Pen& pen, const Glyph& glyph, std::string_view text);
    void Repeat(Pen& pen, const Glyph& glyph, const CodeTable::Entry& entry);
    void OpenString(Pen& pen, const Glyph& glyph);
    void CloseString(Pen& pen);
    void Move(Pen& pen, double distance);
    void UseFont(const Subset& subset, double points);
    void PlaceUpright(Pen& pen, double x, double y);
    void PlaceShaped(const Pen& pen, double x, double y);

    std::string& out_;
    bool inTexts_ = false;
    int fontName_ = -1;
    double fontPoints_ = 0;
    bool upright_ = true;                 ///< Whether the axes of texts are those of the page.
    std::int64_t lineX_ = 0, lineY_ = 0;  ///< Where the last string began, in units of a place.
};

}  // namespace desk::pdf
