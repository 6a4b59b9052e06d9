#include "layout/DotLeader.h"

#include <algorithm>
#include <cmath>

namespace gazetteer {
namespace {

// More dots than a sheet of 200 inches takes in half-point type, which are about 115,000.
constexpr std::size_t kMostDots = 200'000;

// How many dots fill the column if each adds its width.
std::optional<std::size_t> DotsByWidth(double room, double dotWidth) {
    const double dots = room / dotWidth;
    if (std::isnan(dots) || dots < 0 || dots >= static_cast<double>(kMostDots)) return std::nullopt;
    return static_cast<std::size_t>(dots);
}

// The number, found by steps. The width of a dot is told by a step that grew the text and follows
// one that did: in a text of several lines another line may be the widest at first, and the step at
// which the dotted one overtakes it tells too little.
std::optional<std::size_t> DotsBySteps(const WidthWithDots& widthWith, double width) {
    std::size_t fits = 0;
    std::size_t tooLong = 0;  // 0: not known yet.
    double fittingWidth = widthWith(0);
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

std::optional<std::size_t> DotsThatFit(const WidthWithDots& widthWith, double dotWidth,
                                       double width) {
    const auto dots = DotsByWidth(width - widthWith(0), dotWidth);
    // In this order, since the text measured last is remembered.
    for (const int more : {0, 1, -1}) {
        if (!dots || (*dots == 0 && more < 0)) break;
        const std::size_t count = *dots + static_cast<std::size_t>(more);
        if (widthWith(count + 1) > width && widthWith(count) <= width) return count;
    }
    return DotsBySteps(widthWith, width);
}

}  // namespace gazetteer
