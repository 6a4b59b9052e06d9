// Draws symbols on a device. ElementPainter draws the elements of a page in the same styles.

#include <cmath>
#include <numbers>

#include "desk/objects/Symbols.h"
#include "desk/text/CairoGlyphs.h"

namespace desk {

namespace {

void DrawOutline(const SymbolCanvas& canvas, const host::IHostEnvelope& envelope,
                 const host::IHostLineSymbol& line) {
    if (const auto color = VisibleColor(line.Color()))
        StrokeOutline(canvas.Context(), {canvas.Place(envelope), *color});
}

// Position and rotation of a text.
struct TextAnchor {
    PaintPoint point;
    double angle = 0;  ///< Degrees, counter-clockwise.
};

// Share of the line's length before the anchor of its text.
double ShareBefore(std::int32_t horizontal) {
    return horizontal == 1 ? 0.5 : horizontal == 2 ? 1.0 : 0.0;
}

TextAnchor AnchorOn(const SymbolCanvas& canvas, const host::IHostLine& line,
                    std::int32_t horizontal) {
    const PaintPoint start = canvas.Place(*line.StartPoint());
    const PaintPoint end = canvas.Place(*line.EndPoint());
    const double share = ShareBefore(horizontal);
    const double angle = std::atan2(start.y - end.y, end.x - start.x) * 180 / std::numbers::pi;
    return {{std::lerp(start.x, end.x, share), std::lerp(start.y, end.y, share)}, angle};
}

}  // namespace

void LineSymbol::DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) {
    const SymbolCanvas& canvas = Canvas();
    if (const auto envelope = host::As<host::IHostEnvelope>(geometry))
        return DrawOutline(canvas, *envelope, *this);
    const auto line = host::As<host::IHostLine>(geometry);
    if (!line) FailGeometry("a line or an envelope");
    if (const auto color = VisibleColor(Color()))
        StrokeLine(canvas.Context(), canvas.Place(*line->StartPoint()),
                   canvas.Place(*line->EndPoint()), color->rgb);
}

void FillSymbol::DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) {
    const SymbolCanvas& canvas = Canvas();
    const auto envelope = host::As<host::IHostEnvelope>(geometry);
    if (!envelope) FailGeometry("an envelope");
    const PaintBox box = canvas.Place(*envelope);
    if (const auto color = VisibleColor(Color()))
        FillBoxes(canvas.Context(), {&box, 1}, color->rgb);
    if (outline_) DrawOutline(canvas, *envelope, *outline_);
}

void TextSymbol::DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) {
    const SymbolCanvas& canvas = Canvas();
    TextAnchor anchor;
    if (const auto line = host::As<host::IHostLine>(geometry))
        anchor = AnchorOn(canvas, *line, horizontal_);
    else if (const auto point = host::As<host::IHostPoint>(geometry))
        anchor.point = canvas.Place(*point);
    else
        FailGeometry("a line or a point");
    const auto color = VisibleColor(Color());
    if (!color) return;
    UseColor(canvas.Context(), color->rgb);
    CairoGlyphs glyphs(canvas.Context());
    const PlacedText text{&engine_->Find(FontOf(*this)),
                          text_,
                          {horizontal_, vertical_, angle_ + anchor.angle},
                          anchor.point.x,
                          anchor.point.y};
    engine_->Draw(glyphs, text);
}

}  // namespace desk
