#include "pdf/content/TextState.h"

#include <cmath>
#include <numbers>

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Positions of strings are written with this number of decimals, in points.
constexpr int kPlaceDecimals = 2;
constexpr double kPlacesPerPoint = 100;

bool IsUpright(const FontUse& font, const glyphs::Baseline& baseline) {
    return baseline.angle == 0 && font.across == 1 && font.slant == 0;
}

}  // namespace

void TextState::Begin() {
    if (inTexts_) return;
    out_ += "BT\n";
    inTexts_ = true;
    upright_ = true;
    lineX_ = 0;
    lineY_ = 0;
}

void TextState::End() {
    if (inTexts_) out_ += "ET\n";
    inTexts_ = false;
}

void TextState::UseFont(const Subset& subset, double points) {
    if (subset.name == fontName_ && points == fontPoints_) return;
    fontName_ = subset.name;
    fontPoints_ = points;
    out_ += "/F";
    AppendInteger(out_, subset.name);
    out_ += ' ';
    AppendNumber(out_, points);
    out_ += " Tf\n";
}

double TextState::MoveTo(const FontUse& font, const glyphs::Baseline& baseline, double x,
                         double y) {
    const glyphs::Baseline place = Along(baseline, x, y);
    if (IsUpright(font, baseline)) return PlaceUpright(place.x, -place.y);
    PlaceShaped(font, baseline.angle, place.x, -place.y);
    return 0;
}

double TextState::PlaceUpright(double x, double y) {
    const std::int64_t placeX = Scaled(x, kPlaceDecimals);
    const std::int64_t placeY = Scaled(y, kPlaceDecimals);
    if (!upright_) out_ += "1 0 0 1 ";
    AppendScaled(out_, upright_ ? placeX - lineX_ : placeX, kPlaceDecimals);
    out_ += ' ';
    AppendScaled(out_, upright_ ? placeY - lineY_ : placeY, kPlaceDecimals);
    out_ += upright_ ? " Td" : " Tm";
    upright_ = true;
    lineX_ = placeX;
    lineY_ = placeY;
    return static_cast<double>(placeX) / kPlacesPerPoint - x;
}

void TextState::PlaceShaped(const FontUse& font, double angle, double x, double y) {
    const double radians = angle * std::numbers::pi / 180;
    const double c = std::cos(radians);
    const double s = std::sin(radians);
    for (const double entry :
         {font.across * c, font.across * s, font.slant * c - s, font.slant * s + c, x, y}) {
        AppendNumber(out_, entry);
        out_ += ' ';
    }
    out_ += "Tm";
    upright_ = false;
}

}  // namespace pdf
