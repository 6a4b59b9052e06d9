#include "layout/DotLeader.h"

#include <functional>

#include "model/Results.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using WidthWithDots = std::function<double(std::size_t)>;

// More dots than a sheet of 200 inches takes in half-point type, which are about 115,000.
constexpr std::size_t kMostDots = 200'000;

[[noreturn]] void FailWithoutDotWidth() {
    Raise("CVNGazetteerManager.SplitText",
          "The dot has no width in the selected Font, so that dots cannot fill the column.");
}

// The greatest number of dots that fits. A line of several lines may be widest elsewhere, so that
// the first dots change nothing; a step that changes nothing is then doubled.
std::size_t MostDots(const WidthWithDots& widthWith, double widthWithout, double width) {
    std::size_t fits = 0;
    double fittingWidth = widthWithout;
    std::size_t step = 1;
    for (;;) {
        const std::size_t tried = fits + step;
        const double triedWidth = widthWith(tried);
        if (triedWidth > width) {
            if (step == 1) return fits;
            step /= 2;
            continue;
        }
        const double grown = triedWidth - fittingWidth;
        fits = tried;
        fittingWidth = triedWidth;
        if (grown > 0) {
            const double perDot = grown / static_cast<double>(step);
            step =
                std::max<std::size_t>(1, static_cast<std::size_t>((width - triedWidth) / perDot));
        } else {
            step *= 2;
            if (step > kMostDots) FailWithoutDotWidth();
        }
    }
}

}  // namespace

std::string FillLeaders(const MeasureWidth& measure, const std::string& textWithTokens,
                        double textWidth, double width) {
    const auto filled = [&](std::size_t dots) {
        return ReplaceAll(textWithTokens, kDotsToken, std::string(dots, '.'));
    };
    const auto widthWith = [&](std::size_t dots) { return measure(filled(dots)); };
    return filled(MostDots(widthWith, textWidth, width));
}

std::string LeaderAfter(const MeasureWidth& measure, const std::string& text, double width) {
    const double textWidth = measure(text);
    if (textWidth > width) return {};
    const auto widthWith = [&](std::size_t dots) { return measure(text + std::string(dots, '.')); };
    return std::string(MostDots(widthWith, textWidth, width), '.');
}

}  // namespace gazetteer
