#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/LocaleRules.h"
#include "layout/TextMeasure.h"

namespace gazetteer {

/// Breaks a text into lines where Unicode lets a line end; a word longer than a line is divided as
/// its language does, and torn with a hyphen where that is not known.
///
/// Grid squares, house numbers and the like are kept whole: of "5-D", "12/3" or "U-Bahn" a line
/// ends at the hyphen only where a word would have to be divided otherwise.
class ParagraphBreaker {
public:
    /// Without rules lines end at blanks, and long words are torn.
    ParagraphBreaker(host::IHostLocale& locale, host::IHostLineBreaks* rules, TextMeasure& measure)
        : locale_(locale), rules_(rules), measure_(measure) {}

    /// The lines, without the blanks at their ends. Widths are inches, of the first line and of the
    /// others, which are no wider. A character that does not fit such a line, but would fit the
    /// first, stands there all the same; fails if it does not fit the first either.
    std::vector<std::string> Lines(std::string_view text, double firstWidth, double otherWidth);

    /// Whether a word had to be torn.
    bool ToreWord() const { return toreWord_; }

private:
    struct Part {
        std::string line;
        std::size_t bytes = 0;  ///< Of the text that the line takes, blanks behind it included.
    };

    std::vector<std::size_t> LineEnds(std::string_view text);
    Part TakeLine(std::string_view text, std::size_t start, const std::vector<std::size_t>& ends,
                  double width);
    Part DivideWord(std::string_view word, std::size_t start, double width);
    Part TearWord(std::string_view word, double width);
    bool MayFit(std::string_view word, double width);
    bool Fits(const std::string& line, double width) { return measure_.Width(line) <= width; }

    host::IHostLocale& locale_;
    host::IHostLineBreaks* rules_;
    TextMeasure& measure_;
    double firstWidth_ = 0;  ///< Inches.
    bool toreWord_ = false;
};

}  // namespace gazetteer
