#include "layout/ParagraphBreaker.h"

#include <algorithm>
#include <ranges>

#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr char kBlank = ' ';
constexpr std::string_view kSoftHyphen = "\u00AD";
constexpr std::string_view kNoBreakSpace = "\u00A0";
constexpr char kHyphen[] = "-";

std::string_view WithoutBlanksBehind(std::string_view text) {
    const auto last = text.find_last_not_of(kBlank);
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

// More of a word than a line takes, so that each line of a very long one costs the same.
constexpr std::size_t kMostOfWord = 4096;  // Bytes.

std::string_view BeginningOf(std::string_view word, std::size_t most = kMostOfWord) {
    if (word.size() <= most) return word;
    std::size_t end = most;
    while (end > 0 && (word[end] & 0xC0) == 0x80) --end;  // Does not cut inside a character.
    return word.substr(0, end);
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsOneCharacter(std::string_view text) {
    return std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }) == 1;
}

// Whether a hyphen, dash or slash ends at this place and joins what is better left whole: a digit
// or a single character stands on one of its sides, as in "5-D", "24/26" and "U-Bahn".
bool JoinsShortParts(std::string_view text, std::size_t end) {
    static constexpr std::string_view kJoining[] = {"-", "/", "\u2010", "\u2013"};
    auto before = text.substr(0, end);
    auto after = text.substr(end);
    const auto* const joining = std::ranges::find_if(
        kJoining, [&](std::string_view sign) { return before.ends_with(sign); });
    if (joining == std::end(kJoining)) return false;
    before.remove_suffix(joining->size());
    if (before.empty() || after.empty()) return false;
    if (IsDigit(before.back()) || IsDigit(after.front())) return true;
    constexpr std::string_view kBetweenParts = " -/(),;.";
    before.remove_prefix(before.find_last_of(kBetweenParts) + 1);  // 0 without any.
    if (const auto blank = before.rfind(kNoBreakSpace); blank != std::string_view::npos)
        before.remove_prefix(blank + kNoBreakSpace.size());
    after =
        after.substr(0, std::min(after.find_first_of(kBetweenParts), after.find(kNoBreakSpace)));
    return IsOneCharacter(before) || IsOneCharacter(after);
}

// A soft hyphen is seen only where it ends a line.
std::string AsLine(std::string_view text) {
    text = WithoutBlanksBehind(text);
    std::string line(text);
    if (text.ends_with(kSoftHyphen))
        line.replace(line.size() - kSoftHyphen.size(), kSoftHyphen.size(), kHyphen);
    return line;
}

}  // namespace

std::vector<std::string> ParagraphBreaker::Lines(std::string_view text, double firstWidth,
                                                 double otherWidth) {
    toreWord_ = false;
    firstWidth_ = firstWidth;
    std::vector<std::string> lines;
    const auto ends = LineEnds(text);
    for (std::size_t start = 0; start < text.size();) {
        if (text[start] == kBlank) {
            ++start;
            continue;
        }
        auto part = TakeLine(text, start, ends, lines.empty() ? firstWidth : otherWidth);
        start += part.bytes;
        lines.push_back(std::move(part.line));
    }
    if (lines.empty()) lines.emplace_back();
    return lines;
}

// Ascending; the end of the text is the last.
std::vector<std::size_t> ParagraphBreaker::LineEnds(std::string_view text) {
    std::vector<std::size_t> ends;
    if (rules_)
        ends = rules_->LineBreaks(text);
    else
        for (std::size_t i = 1; i < text.size(); ++i)
            if (text[i - 1] == kBlank && text[i] != kBlank) ends.push_back(i);
    ends.push_back(text.size());
    return ends;
}

// False if the beginning of a word is longer than the line. Ever longer beginnings are measured, so
// that a word much longer than the line costs no more than the line.
bool ParagraphBreaker::MayFit(std::string_view word, double width) {
    constexpr std::size_t kShort = 64;  // Bytes.
    for (std::size_t most = kShort; most < word.size(); most *= 2)
        if (!Fits(std::string(BeginningOf(word, most)), width)) return false;
    return true;
}

ParagraphBreaker::Part ParagraphBreaker::TakeLine(std::string_view text, std::size_t start,
                                                  const std::vector<std::size_t>& ends,
                                                  double width) {
    const auto first = std::ranges::upper_bound(ends, start);
    Part taken;
    Part shortPart;
    const auto last = MayFit(text.substr(start, *first - start), width) ? ends.end() : first;
    for (auto end = first; end != last; ++end) {
        auto line = AsLine(text.substr(start, *end - start));
        if (!Fits(line, width)) break;
        (JoinsShortParts(text, *end) ? shortPart : taken) = {std::move(line), *end - start};
    }
    if (taken.bytes > 0) return taken;
    if (shortPart.bytes > 0) return shortPart;
    const std::size_t wordStart = first == ends.begin() ? 0 : *(first - 1);
    const auto word = WithoutBlanksBehind(text.substr(wordStart, *first - wordStart));
    return DivideWord(word, start - wordStart, width);
}

// The rest of a word from the start on. It keeps the divisions of the whole word, of which the
// lines before have taken the beginning.
ParagraphBreaker::Part ParagraphBreaker::DivideWord(std::string_view word, std::size_t start,
                                                    double width) {
    if (start > kMostOfWord) {
        word.remove_prefix(start);
        start = 0;
    }
    const auto rest = BeginningOf(word.substr(start));
    word = word.substr(0, start + rest.size());
    const auto divisions = rules_ ? rules_->WordDivisions(word) : std::vector<std::size_t>();
    for (const std::size_t at : std::views::reverse(divisions)) {
        if (at <= start) break;
        std::string line = std::string(word.substr(start, at - start)) + kHyphen;
        if (Fits(line, width)) return {std::move(line), at - start};
    }
    return TearWord(rest, width);
}

// As many characters as fit with a hyphen; one alone stands without.
ParagraphBreaker::Part ParagraphBreaker::TearWord(std::string_view word, double width) {
    toreWord_ = true;
    std::vector<std::size_t> ends;  // Of the characters.
    for (const std::size_t length : locale_.Characters(word))
        ends.push_back((ends.empty() ? 0 : ends.back()) + length);
    const auto torn = [&](std::size_t end) { return std::string(word.substr(0, end)) + kHyphen; };
    // Doubling first, since a word may be much longer than the line.
    std::size_t most = 1;
    while (most < ends.size() && Fits(torn(ends[most - 1]), width)) most *= 2;
    const auto end = ends.begin() + static_cast<std::ptrdiff_t>(std::min(most, ends.size()));
    const auto fitting = std::partition_point(
        ends.begin(), end, [&](std::size_t bytes) { return Fits(torn(bytes), width); });
    if (fitting != ends.begin()) return {torn(*(fitting - 1)), *(fitting - 1)};
    std::string character(word.substr(0, ends.front()));
    if (!Fits(character, std::max(width, firstWidth_)))
        Raise("CVNGazetteerManager.SplitText", "Column width is set too narrow for selected Font!");
    return {std::move(character), ends.front()};
}

}  // namespace gazetteer
