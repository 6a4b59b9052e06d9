#pragma once

#include <cstdint>
#include <string>

#include "glyphs/GlyphLine.h"
#include "pdf/content/TextState.h"
#include "pdf/fonts/FontSet.h"

namespace pdf {

/// Tells the marks of texts.
class Marker {
public:
    virtual ~Marker() = default;
    /// Returns the operator that begins the next piece of content. A text that the glyphs do not
    /// tell themselves is told by the mark.
    virtual std::string NextMark(std::string_view actualText) = 0;
    /// Returns whether the marks tell the whole text, so that no part of it needs to be told.
    virtual bool TellWholeText() const = 0;
};

/// Writes the texts of a page. Each glyph is within kPlaceTolerance of its place, and within
/// kLeaderTolerance inside a leader, although many PDF readers support only whole widths
/// (thousandths of the font size).
class TextContent {
public:
    // Points. One dot at 2400 dots per inch is 0.03 points.
    static constexpr double kPlaceTolerance = 0.01;
    static constexpr double kLeaderTolerance = 0.03;

    /// The marker is null where nothing is marked.
    TextContent(std::string& out, Marker* marker) : out_(out), marker_(marker), texts_(out) {}

    /// Returns the width in points, from the left end of the baseline.
    double Show(const FontUse& font, const glyphs::GlyphLine& line,
                const glyphs::Baseline& baseline);

    /// Marks the text that follows. The mark stands right before it: behind the place of the text
    /// it compresses better than before it. Requires a marker.
    void MarkNext() { markNext_ = true; }
    void EndMark();
    /// Adds a blank behind the last string, which parts it from the next one for those who hear it.
    void AddBlank(const FontUse& font);

    /// Begins a text object, if there is none.
    void Begin() { texts_.Begin(); }
    /// Ends the text object, so that other content can follow.
    void End() { texts_.End(); }

private:
    struct Pen {
        const FontUse& font;
        const glyphs::Baseline& baseline;
        const Subset* subset = nullptr;
        double thousandth = 0;  ///< A thousandth of the font size, in points.
        double move = 0;        ///< Smallest move, in points.
        int decimals = 0;       ///< Decimals of a move.
        double x = 0;           ///< Points from the left end of the baseline.
        int y = 0;              ///< As glyphs::Glyph::y.
        bool open = false;      ///< A string is open.
        std::size_t start = 0;  ///< Offset of the open string in out_.
        bool moved = false;     ///< The open string contains moves.
        std::size_t part = 0;   ///< Offset of its part behind the last move.
    };

    void ShowCluster(Pen& pen, std::span<const glyphs::Glyph> glyphs, std::string_view text);
    void ShowOne(Pen& pen, const glyphs::Glyph& glyph, std::string_view text);
    void ShowGlyph(Pen& pen, const glyphs::Glyph& glyph, std::string_view text);
    void Repeat(Pen& pen, const glyphs::Glyph& glyph, const CodeTable::Entry& entry);
    void WriteMark();
    void AppendCode(Pen& pen, const Code& code);
    void OpenString(Pen& pen, const glyphs::Glyph& glyph);
    void CloseString(Pen& pen);
    void Move(Pen& pen, double distance);

    std::string& out_;
    Marker* marker_;
    bool markNext_ = false;
    bool isMarked_ = false;
    TextState texts_;
};

}  // namespace pdf
