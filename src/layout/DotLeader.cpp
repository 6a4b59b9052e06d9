#include "layout/DotLeader.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <vector>

#include "layout/CodePoints.h"
#include "model/Results.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using WidthWithDots = std::function<double(std::size_t)>;

// More dots than a sheet of 200 inches takes in half-point type, which are about 115,000.
constexpr std::size_t kMostDots = 200'000;

// The greatest number of dots that fits; nothing where dots have no width. The width of a dot is
// told by a step that grew the text and follows one that did: in a text of several lines another
// line may be the widest at first, and the step at which the dotted one overtakes it tells too
// little.
std::optional<std::size_t> MostDots(const WidthWithDots& widthWith, double widthWithout,
                                    double width) {
    std::size_t fits = 0;
    std::size_t tooLong = 0;  // 0: not known yet.
    double fittingWidth = widthWithout;
    bool grew = false;
    for (std::size_t step = 1;;) {
        const std::size_t tried = tooLong > 0 ? std::min(fits + step, tooLong - 1) : fits + step;
        if (tried == fits) return fits;
        const double triedWidth = widthWith(tried);
        if (triedWidth > width) {
            tooLong = tried;
            step = std::max<std::size_t>(1, (tooLong - fits) / 2);
            continue;
        }
        const double perDot = (triedWidth - fittingWidth) / static_cast<double>(tried - fits);
        fits = tried;
        fittingWidth = triedWidth;
        if (perDot <= 0) {
            if (fits > kMostDots) return std::nullopt;
            step *= 2;
        } else if (grew) {
            const auto most = static_cast<double>(8 * fits + 256);
            step = static_cast<std::size_t>(std::clamp((width - fittingWidth) / perDot, 1.0, most));
        } else {
            step = 1;
        }
        grew = perDot > 0;
    }
}

// The most dots that a column may take after a text, to the best of knowledge: the full stops of
// text fonts are 0.22 to 0.32 ems wide, their letters half an em on average. Where more fit, and in
// a very long line, they are counted another way.
std::size_t DotsToTry(const TextMeasure& measure, const std::string& text, double width) {
    constexpr double kNarrowDot = 0.22;  // Ems.
    constexpr double kNarrowLetter = 0.3;
    constexpr double kMostAtOnce = 4096;
    const double ems = width * host::kPointsPerInch / measure.Symbol().Size();
    const double dots =
        (ems - kNarrowLetter * static_cast<double>(CountCodePoints(text))) / kNarrowDot;
    // In this order 0 comes of a type without size and a column without width, whose quotient is no
    // number.
    return static_cast<std::size_t>(std::min(kMostAtOnce, std::max(0.0, dots))) + 2;
}

struct DotsThatFit {
    std::size_t count = 0;
    double width = 0;  // Of the line with these dots,
    double bare = 0;   // and without.
};

// The dots that fill a line, from what one and two of them make of it. Nothing if dots have no
// width or if the line is too long without them.
std::optional<DotsThatFit> DotsBySteps(const DottedLine& line, double width) {
    const double about = line.DotsIn(width);
    const bool countable =
        line.GrowsWithDots() && about >= 0 && about < static_cast<double>(kMostDots);
    if (!countable || line.Width(0) > width) return std::nullopt;
    auto count = static_cast<std::size_t>(about);
    while (count > 0 && line.Width(count) > width) --count;
    while (line.Width(count + 1) <= width) ++count;
    return DotsThatFit{count, line.Width(count), line.Width(0)};
}

// The same, told by the widths of a longer line's beginnings: without dots, with one, two and so
// on. Nothing if that is not told at once, or if the line is too long without dots.
std::optional<DotsThatFit> DotsByPrefixes(TextMeasure& measure, const std::string& line,
                                          double width) {
    const std::size_t most = DotsToTry(measure, line, width);
    std::vector<std::size_t> ends(most + 1);
    std::iota(ends.begin(), ends.end(), line.size());
    const auto* const widths = measure.PrefixWidths(line + std::string(most, '.'), ends);
    if (!widths) return std::nullopt;
    const auto tooLong = std::ranges::find_if(*widths, [&](double each) { return each > width; });
    if (tooLong == widths->begin() || tooLong == widths->end()) return std::nullopt;
    const auto last = tooLong - 1;
    return DotsThatFit{static_cast<std::size_t>(last - widths->begin()), *last, widths->front()};
}

// In one question at most.
std::optional<DotsThatFit> DotsAtOnce(TextMeasure& measure, const std::string& line, double width) {
    if (const auto dotted = measure.Dotted(line)) return DotsBySteps(*dotted, width);
    return DotsByPrefixes(measure, line, width);
}

}  // namespace

std::optional<std::string> FillLeaders(TextMeasure& measure, const std::string& textWithTokens,
                                       double textWidth, double width) {
    const auto filled = [&](std::size_t dots) {
        return ReplaceAll(textWithTokens, kDotsToken, std::string(dots, '.'));
    };
    const auto dots =
        MostDots([&](std::size_t count) { return measure.Width(filled(count)); }, textWidth, width);
    if (!dots) return std::nullopt;
    return filled(*dots);
}

std::optional<std::string> LineWithLeader(TextMeasure& measure, const std::string& text,
                                          double width) {
    const auto dots = DotsAtOnce(measure, text, width);
    if (!dots || dots->bare >= width) return std::nullopt;
    std::string dotted = text + std::string(dots->count, '.');
    measure.Remember(dotted, dots->width);
    return dotted;
}

std::optional<std::string> LeaderAfter(TextMeasure& measure, const std::string& text, double width,
                                       bool hasMarkup) {
    const double textWidth = measure.Width(text);
    if (textWidth > width) return std::string();
    if (!hasMarkup) {
        const auto lineStart = text.rfind('\n') + 1;  // 0 where there is none.
        if (const auto dots = DotsAtOnce(measure, text.substr(lineStart), width))
            return std::string(dots->count, '.');
    }
    const auto dots =
        MostDots([&](std::size_t count) { return measure.Width(text + std::string(count, '.')); },
                 textWidth, width);
    if (!dots) return std::nullopt;
    return std::string(*dots, '.');
}

}  // namespace gazetteer
