#include "layout/TextMeasure.h"

#include <array>

#include "layout/DrawingBracket.h"
#include "support/ErrorHandling.h"

namespace gazetteer {

using host::kPointsPerInch;

double DottedLine::Width(std::size_t dots) const {
    const double points = dots == 0 ? none_ : one_ + static_cast<double>(dots - 1) * step_;
    return points / kPointsPerInch;
}

double DottedLine::DotsIn(double width) const {
    return (width * kPointsPerInch - none_) / step_;
}

TextMeasure::TextMeasure(const host::Ref<host::IHostDisplay>& display,
                         const host::Ref<host::IHostTextSymbol>& symbol)
    : display_(display), symbol_(symbol), pairs_(display, symbol) {}

TextSize TextMeasure::Size(const std::string& text) try {
    if (hasLast_ && text == lastText_) return lastSize_;
    if (const auto sum = pairs_.Width(text))
        lastSize_ = {*sum / kPointsPerInch, LineHeight()};
    else
        lastSize_ = Ask(text);
    lastText_ = text;
    hasLast_ = true;
    return lastSize_;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

const std::vector<double>* TextMeasure::PrefixWidths(const std::string& line,
                                                     std::span<const std::size_t> ends) try {
    if (!pairs_.Prefixes(line, ends, prefixes_)) return nullptr;
    for (double& width : prefixes_) width /= kPointsPerInch;
    return &prefixes_;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

std::optional<DottedLine> TextMeasure::Dotted(const std::string& line) try {
    const std::size_t size = line.size();
    const std::array ends{size, size + 1, size + 2};
    if (!pairs_.Prefixes(line + "..", ends, prefixes_)) return std::nullopt;
    if (!pairs_.TakesDots(line)) return std::nullopt;
    return DottedLine(prefixes_[0], prefixes_[1], prefixes_[2]);
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

void TextMeasure::Remember(const std::string& line, double width) {
    lastText_ = line;
    lastSize_ = {width, LineHeight()};
    hasLast_ = true;
}

TextSize TextMeasure::Ask(const std::string& text) {
    const auto extent = InDrawingBracket(*display_, [&](auto device, const auto& transformation) {
        return symbol_->MeasureText(device, transformation, text);
    });
    return {extent.xSize / kPointsPerInch, extent.ySize / kPointsPerInch};
}

double TextMeasure::LineHeight() {
    if (!lineHeight_) {
        const auto told = pairs_.LineHeight();
        lineHeight_ = told ? *told / kPointsPerInch : Ask(".").height;
    }
    return *lineHeight_;
}

}  // namespace gazetteer
