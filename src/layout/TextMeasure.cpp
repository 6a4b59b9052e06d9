#include "layout/TextMeasure.h"

#include "support/ErrorHandling.h"

namespace gazetteer {

TextSize TextMeasure::Size(const std::string& text) try {
    if (lastSize_ && text == lastText_) return *lastSize_;
    constexpr int kNoCache = -1;
    using host::kPointsPerInch;
    // If MeasureText throws, EndDrawing is not called; the host closes the bracket.
    display_->BeginDrawing(display_->DeviceContext(), kNoCache);
    const auto extent =
        symbol_->MeasureText(display_->DeviceContext(), display_->Transformation(), text);
    display_->EndDrawing();
    lastText_ = text;
    lastSize_ = {extent.xSize / kPointsPerInch, extent.ySize / kPointsPerInch};
    return *lastSize_;
} catch (...) {
    PassOn("GetTextSize", kManagerLabel);
}

double TextMeasure::DotWidth() {
    if (!dotWidth_) dotWidth_ = Width("..") - Width(".");
    return *dotWidth_;
}

}  // namespace gazetteer
