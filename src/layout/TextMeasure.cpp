#include "layout/TextMeasure.h"

#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr double kPointsPerInch = 72;
constexpr int kNoCache = -1;

}  // namespace

TextMeasure::TextMeasure(const host::Ref<host::IHostDisplay>& display,
                         const host::Ref<host::IHostTextSymbol>& symbol)
    : display_(display), symbol_(symbol), prefixes_(host::As<host::IHostTextPrefixes>(symbol)) {}

TextSize TextMeasure::Size(const std::string& text) try {
    if (hasLast_ && text == lastText_) return lastSize_;
    display_->BeginDrawing(display_->Device(), kNoCache);
    const auto extent = symbol_->MeasureText(display_->Device(), display_->Transformation(), text);
    display_->EndDrawing();
    lastText_ = text;
    lastSize_ = {extent.xSize / kPointsPerInch, extent.ySize / kPointsPerInch};
    hasLast_ = true;
    return lastSize_;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

const std::vector<double>* TextMeasure::PrefixWidths(const std::string& line,
                                                     std::span<const std::size_t> ends) try {
    if (!prefixes_) return nullptr;
    display_->BeginDrawing(display_->Device(), kNoCache);
    const bool told = prefixes_->MeasurePrefixes(display_->Device(), display_->Transformation(),
                                                 line, ends, extents_);
    display_->EndDrawing();
    if (!told) return nullptr;
    for (double& width : extents_.widths) width /= kPointsPerInch;
    return &extents_.widths;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

void TextMeasure::Remember(const std::string& prefix, double width) {
    lastText_ = prefix;
    lastSize_ = {width, extents_.height / kPointsPerInch};
    hasLast_ = true;
}

}  // namespace gazetteer
