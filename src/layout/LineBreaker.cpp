#include "layout/LineBreaker.h"

#include <algorithm>
#include <span>

#include "layout/WideningCharacters.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr std::string_view kCarriageReturn = "\r";
constexpr std::string_view kLineFeed = "\n";
constexpr std::string_view kBlank = " ";
constexpr std::string_view kHyphen = "-";

}  // namespace

LineBreaker::LineBreaker(host::IHostLocale& locale, TextMeasure& measure, double width,
                         bool hasMarkup)
    : locale_(locale), measure_(measure), width_(width), hasMarkup_(hasMarkup) {}

std::string LineBreaker::Wrap(const std::string& text, double textWidth) {
    const auto lengths = locale_.Characters(text);
    characters_.reserve(lengths.size());
    result_.reserve(2 * lengths.size());
    std::size_t at = 0;
    for (const std::size_t length : lengths) {
        characters_.push_back(std::string_view(text).substr(at, length));
        at += length;
    }
    averageWidth_ = textWidth / static_cast<double>(std::max<std::size_t>(1, characters_.size()));
    for (std::size_t i = 0; i < characters_.size(); ++i) {
        Take(i);
        first_ = false;
    }
    std::string result;
    for (const std::string_view character : result_) result += character;
    return result;
}

void LineBreaker::Take(std::size_t index) {
    const std::string_view character = characters_[index];
    if (character == kBlank && atLineStart_) return;
    if (character == kBlank) {
        sinceSpace_ = 0;
        spaceInLine_ = true;
    } else if (spaceInLine_) {
        ++sinceSpace_;
    }
    if (Fits(index)) {
        lineMeasured_ = true;
        Append(character);
        atLineStart_ = false;
    } else {
        Overflow(character);
        knownToFit_ = index + 1;
    }
}

void LineBreaker::Overflow(std::string_view character) {
    if (first_ || result_.empty())
        Raise("CVNGazetteerManager.SplitText", "Column width is set too narrow for selected Font!");
    if (character == kBlank) {
        BreakLine();
        atLineStart_ = true;
    } else {
        const auto nextLine = TakeNextLine();
        BreakLine();
        for (const std::string_view moved : nextLine) Append(moved);
        Append(character);
        atLineStart_ = false;
    }
    spaceInLine_ = false;
    sinceSpace_ = 0;
}

// Takes off the result what opens the next line: all behind the last blank, which is dropped, or
// the last character of a word that is longer than the line, with a hyphen in its place.
std::vector<std::string_view> LineBreaker::TakeNextLine() {
    std::vector<std::string_view> nextLine;
    if (spaceInLine_) {
        const std::size_t keep = result_.size() - sinceSpace_;
        nextLine.assign(result_.begin() + static_cast<std::ptrdiff_t>(keep) + 1, result_.end());
        result_.resize(keep);
    } else {
        nextLine.push_back(result_.back());
        result_.back() = kHyphen;
        brokeWord_ = true;
        lineMeasured_ = false;
    }
    // The break may fall into an earlier line of the same text.
    lineStart_ = std::min(lineStart_, result_.size());
    while (lineStart_ > 0 && result_[lineStart_ - 1] != kLineFeed) --lineStart_;
    return nextLine;
}

// Whether the text so far, followed by the character, is no wider than the column.
bool LineBreaker::Fits(std::size_t index) {
    if (earlierTooWide_) return false;
    if (index < knownToFit_) return true;
    if (index == knownTooLong_) return false;
    const std::size_t runEnd = WideningRunEnd(index);
    if (runEnd <= index + 1) return LineFits(index);
    FindLineEnd(index, runEnd);
    return index < knownToFit_;
}

// Finds by interpolation how many characters of a coming run the present line takes, and notes it.
// About four measurements a line, where asking for each character takes as many as it has.
void LineBreaker::FindLineEnd(std::size_t index, std::size_t runEnd) {
    const std::string line = Line();
    std::size_t fits = index;          // The line takes the characters before this one,
    std::size_t tooLong = runEnd + 1;  // and not those before this one.
    double fittingWidth = line.empty() ? 0 : measure_.Width(line);
    while (fits + 1 < tooLong) {
        const double room = std::max(0.0, (width_ - fittingWidth) / averageWidth_);
        const std::size_t most = tooLong - 1 - fits;
        const std::size_t more =
            room < static_cast<double>(most) ? static_cast<std::size_t>(room) : most;
        const std::size_t end = fits + std::max<std::size_t>(1, more);
        std::string candidate = line;
        for (std::size_t i = index; i < end; ++i) candidate += characters_[i];
        const double candidateWidth = measure_.Width(candidate);
        if (candidateWidth <= width_) {
            fits = end;
            fittingWidth = candidateWidth;
        } else {
            tooLong = end;
        }
    }
    knownToFit_ = fits;
    knownTooLong_ = fits < runEnd ? fits : std::string::npos;
}

// Whether no beginning of the present line, from its first letter on, is wider than a longer one.
bool LineBreaker::LineOnlyGrows() const {
    const auto line = std::span(result_).subspan(lineStart_);
    return std::ranges::all_of(line, OnlyWidens) && std::ranges::any_of(line, IsLetterOfOneScript);
}

// Whether the present line takes the character.
bool LineBreaker::LineFits(std::size_t index) {
    return measure_.Width(Line().append(characters_[index])) <= width_;
}

void LineBreaker::Append(std::string_view character) {
    if (character == kLineFeed) FinishLine();
    result_.push_back(character);
    if (character == kLineFeed) StartLine();
}

void LineBreaker::BreakLine() {
    FinishLine();
    result_.push_back(kCarriageReturn);
    result_.push_back(kLineFeed);
    StartLine();
}

// The width of a finished line counts for all that follow. A line cut off one that fitted fits.
void LineBreaker::FinishLine() {
    if (hasMarkup_) return;
    const bool fits = lineMeasured_ && LineOnlyGrows();
    if (!fits && !earlierTooWide_) earlierTooWide_ = measure_.Width(Line()) > width_;
    lineMeasured_ = false;
}

// A text with markup is one line to the end.
void LineBreaker::StartLine() {
    if (!hasMarkup_) lineStart_ = result_.size();
}

std::string LineBreaker::Line() const {
    std::string line;
    for (std::size_t i = lineStart_; i < result_.size(); ++i) line += result_[i];
    return line;
}

// Where the run of characters ends of which each only widens the present line.
std::size_t LineBreaker::WideningRunEnd(std::size_t index) const {
    if (hasMarkup_) return index;
    // More than lines have, so that a long text is not searched to its end for each of them.
    constexpr std::size_t kAhead = 1024;
    const auto rest =
        std::span(characters_).subspan(index, std::min(kAhead, characters_.size() - index));
    const auto line = std::span(result_).subspan(lineStart_);
    const bool begins = IsLetterOfOneScript(rest[0]) && std::ranges::all_of(line, IsPlainSign);
    const auto only = begins || LineOnlyGrows() ? OnlyWidens : IsPlainSign;
    if (only == IsPlainSign && !std::ranges::all_of(line, only)) return index;
    const auto end = std::ranges::find_if_not(rest, only);
    return index + static_cast<std::size_t>(end - rest.begin());
}

}  // namespace gazetteer
