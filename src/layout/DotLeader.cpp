#include "layout/DotLeader.h"

#include <algorithm>
#include <functional>

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

}  // namespace

std::optional<std::string> FillLeaders(const MeasureWidth& measure,
                                       const std::string& textWithTokens, double textWidth,
                                       double width) {
    const auto filled = [&](std::size_t dots) {
        return ReplaceAll(textWithTokens, kDotsToken, std::string(dots, '.'));
    };
    const auto dots =
        MostDots([&](std::size_t count) { return measure(filled(count)); }, textWidth, width);
    if (!dots) return std::nullopt;
    return filled(*dots);
}

std::optional<std::string> LeaderAfter(const MeasureWidth& measure, const std::string& text,
                                       double width) {
    const double textWidth = measure(text);
    if (textWidth > width) return std::string();
    const auto dots =
        MostDots([&](std::size_t count) { return measure(text + std::string(count, '.')); },
                 textWidth, width);
    if (!dots) return std::nullopt;
    return std::string(*dots, '.');
}

}  // namespace gazetteer
