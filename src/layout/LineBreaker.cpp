#include "layout/LineBreaker.h"

#include <algorithm>

#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr std::string_view kCarriageReturn = "\r";
constexpr std::string_view kLineFeed = "\n";
constexpr std::string_view kBlank = " ";
constexpr std::string_view kHyphen = "-";

// The first code point of a well-formed character and its length in bytes.
struct CodePoint {
    char32_t value;
    std::size_t bytes;
};

CodePoint FirstCodePoint(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[i]));
    };
    const char32_t lead = byte(0);
    if (lead < 0x80 || text.size() < 2) return {lead, 1};
    if (lead < 0xE0 || text.size() < 3) return {(lead & 0x1FU) << 6 | (byte(1) & 0x3FU), 2};
    if (lead < 0xF0 || text.size() < 4)
        return {(lead & 0x0FU) << 12 | (byte(1) & 0x3FU) << 6 | (byte(2) & 0x3FU), 3};
    return {
        (lead & 0x07U) << 18 | (byte(1) & 0x3FU) << 12 | (byte(2) & 0x3FU) << 6 | (byte(3) & 0x3FU),
        4};
}

// Characters that only ever widen the line they join: printable Latin, Greek and Cyrillic, general
// punctuation, and the ideographs, syllables and signs of East Asia, each of one code point. In
// other scripts a letter may change the shape of the one before it and narrow the line.
bool OnlyWidens(std::string_view character) {
    if (character.size() == 1) return character[0] >= 0x20 && character[0] <= 0x7E;
    const auto [value, bytes] = FirstCodePoint(character);
    if (bytes != character.size()) return false;
    const auto in = [v = value](char32_t begin, char32_t end) { return v >= begin && v <= end; };
    return in(0xA0, 0xAC) || in(0xAE, 0x24F) || in(0x370, 0x3FF) || in(0x400, 0x482) ||
           in(0x48A, 0x52F) || in(0x1E00, 0x1EFF) || in(0x2010, 0x2027) || in(0x3000, 0x3029) ||
           in(0x3041, 0x3096) || in(0x30A0, 0x30FF) || in(0x3400, 0x9FFF) || in(0xAC00, 0xD7A3) ||
           in(0xFF01, 0xFF60);
}

}  // namespace

LineBreaker::LineBreaker(host::IHostLocale& locale, TextMeasure& measure, double width)
    : locale_(locale), measure_(measure), width_(width) {}

std::string LineBreaker::Wrap(const std::string& text, double textWidth) {
    std::size_t at = 0;
    for (const std::size_t length : locale_.Characters(text)) {
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
    if (!OnlyWidens(characters_[index])) return LineFits(index, index + 1);
    if (!FindLineEndAtOnce(index)) FindLineEnd(index);
    return index < knownToFit_;
}

// Finds by interpolation how many of the coming characters the present line takes, and notes it.
// About four measurements a line, where asking for each character takes as many as it has.
void LineBreaker::FindLineEnd(std::size_t index) {
    const std::size_t runEnd = PlainRunEnd(index);
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

// Finds it in one question, if the host tells the widths of a line's beginnings at once. A line may
// turn out to take all the characters asked for; the next one is then asked for anew.
bool LineBreaker::FindLineEndAtOnce(std::size_t index) {
    constexpr double kMargin = 1.5;  // Characters narrower than the average.
    constexpr double kAtLeast = 16;
    const auto taken = static_cast<double>(result_.size() - lineStart_);
    const double room = std::max(kAtLeast, kMargin * width_ / averageWidth_ - taken);
    std::string line = Line();
    std::vector<std::size_t> ends;
    ends.reserve(characters_.size() - index);
    for (std::size_t i = index; i < characters_.size() && OnlyWidens(characters_[i]); ++i) {
        if (static_cast<double>(ends.size()) >= room) break;
        line += characters_[i];
        ends.push_back(line.size());
    }
    const auto* const widths = measure_.PrefixWidths(line, ends);
    if (!widths) return false;
    const auto tooLong = std::ranges::find_if(*widths, [&](double each) { return each > width_; });
    knownToFit_ = index + static_cast<std::size_t>(tooLong - widths->begin());
    knownTooLong_ = tooLong == widths->end() ? std::string::npos : knownToFit_;
    return true;
}

// Whether the present line takes the characters from begin to end.
bool LineBreaker::LineFits(std::size_t begin, std::size_t end) {
    std::string line = Line();
    for (std::size_t i = begin; i < end; ++i) line += characters_[i];
    return measure_.Width(line) <= width_;
}

void LineBreaker::Append(std::string_view character) {
    if (character == kLineFeed) FinishLine();
    result_.push_back(character);
    if (character == kLineFeed) lineStart_ = result_.size();
}

void LineBreaker::BreakLine() {
    FinishLine();
    result_.push_back(kCarriageReturn);
    result_.push_back(kLineFeed);
    lineStart_ = result_.size();
}

// The width of a finished line counts for all that follow. A line cut off one that fitted fits.
void LineBreaker::FinishLine() {
    const bool fits =
        lineMeasured_ && std::all_of(result_.begin() + static_cast<std::ptrdiff_t>(lineStart_),
                                     result_.end(), OnlyWidens);
    if (!fits && !earlierTooWide_) earlierTooWide_ = measure_.Width(Line()) > width_;
    lineMeasured_ = false;
}

std::string LineBreaker::Line() const {
    std::string line;
    for (std::size_t i = lineStart_; i < result_.size(); ++i) line += result_[i];
    return line;
}

// Where the run of characters that only widen the line ends.
std::size_t LineBreaker::PlainRunEnd(std::size_t index) const {
    while (index < characters_.size() && OnlyWidens(characters_[index])) ++index;
    return index;
}

}  // namespace gazetteer
