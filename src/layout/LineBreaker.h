#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/Locale.h"
#include "layout/TextMeasure.h"

namespace gazetteer {

/// Wraps a text that is wider than its column. Lines break at blanks; a word longer than a line is
/// broken with a hyphen in the place of the last character that fitted.
///
/// The rule is told per character: the text so far and the character either fit or do not. The
/// answer is the same whether it is measured for each character or known from a few measurements
/// of the line (see Fits): as the width of a text is that of its widest line, only the present line
/// need be measured, and in plain scripts a line grows with each character it takes. Of a text with
/// markup neither holds: it is measured whole, for each character.
class LineBreaker {
public:
    /// The width of the column, in inches.
    LineBreaker(host::IHostLocale& locale, TextMeasure& measure, double width, bool hasMarkup);

    /// The text with CRLF line ends. textWidth is its width on one line. Fails if the first
    /// character that the text keeps does not fit.
    std::string Wrap(const std::string& text, double textWidth);
    /// Whether a word was broken.
    bool BrokeWord() const { return brokeWord_; }

private:
    void Take(std::size_t index);
    void Overflow(std::string_view character);
    bool Fits(std::size_t index);
    void FindLineEnd(std::size_t index, std::size_t runEnd);
    bool LineOnlyGrows() const;
    bool LineFits(std::size_t index);

    std::vector<std::string_view> TakeNextLine();
    void Append(std::string_view character);
    void BreakLine();
    void FinishLine();
    void StartLine();
    std::string Line() const;
    std::size_t WideningRunEnd(std::size_t index) const;

    host::IHostLocale& locale_;
    TextMeasure& measure_;
    double width_;
    bool hasMarkup_;

    std::vector<std::string_view> characters_;
    double averageWidth_ = 0;  ///< Of a character, as far as is known.

    /// The text built so far, in characters.
    std::vector<std::string_view> result_;
    std::size_t lineStart_ = 0;    ///< Where what is measured begins in the result.
    bool lineMeasured_ = true;     ///< The present line, or a longer one, was measured and fits.
    bool earlierTooWide_ = false;  ///< A finished line is wider than the column.
    std::size_t knownToFit_ = 0;   ///< Characters before this index fit on the present line.
    std::size_t knownTooLong_ = std::string::npos;  ///< The character that does not.

    bool first_ = true;         ///< No character has been looked at yet.
    bool atLineStart_ = true;   ///< Blanks are skipped here.
    bool spaceInLine_ = false;  ///< The line holds a blank at which it can be broken.
    bool brokeWord_ = false;
    std::size_t sinceSpace_ = 0;  ///< Characters after that blank, the one looked at included.
};

}  // namespace gazetteer
