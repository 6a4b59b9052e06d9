#include "desk/devices/SymbolCanvas.h"

#include "desk/devices/Devices.h"
#include "desk/devices/InkColor.h"
#include "desk/text/ItalicFont.h"
#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void Fail(const char* sentence) {
    throw host::Failure(host::kFailureUnspecified, "SymbolCanvas", sentence);
}

bool MapsSomething(const host::IHostDisplayTransformation& transformation) {
    const auto shown = transformation.ShownExtent();
    const auto device = transformation.DeviceRectangle();
    return shown && shown->Width() > 0 && shown->Height() > 0 && device.right > device.left &&
           device.bottom > device.top && transformation.DotsPerInch() > 0;
}

}  // namespace

SymbolCanvas::SymbolCanvas(host::DeviceContext device,
                           const host::Ref<host::IHostDisplayTransformation>& transformation)
    : context_(PixelSurface::Of(device).NewContext()) {
    if (!transformation || !MapsSomething(*transformation))
        Fail(
            "A symbol needs a transformation with an extent, a device rectangle and a resolution.");
    const auto shown = transformation->ShownExtent();
    const auto rectangle = transformation->DeviceRectangle();
    const double pixelsPerPoint = transformation->DotsPerInch() / kPointsPerInch;
    cairo_scale(context_.get(), pixelsPerPoint, pixelsPerPoint);
    origin_ = {rectangle.left / pixelsPerPoint, rectangle.top / pixelsPerPoint};
    unit_ = {(rectangle.right - rectangle.left) / shown->Width() / pixelsPerPoint,
             (rectangle.bottom - rectangle.top) / shown->Height() / pixelsPerPoint};
    corner_ = {shown->XMin(), shown->YMax()};
}

PaintPoint SymbolCanvas::Place(double x, double y) const {
    return {origin_.x + (x - corner_.x) * unit_.x, origin_.y + (corner_.y - y) * unit_.y};
}

PaintPoint SymbolCanvas::Place(const host::IHostPoint& point) const {
    return Place(point.X(), point.Y());
}

PaintBox SymbolCanvas::Place(const host::IHostEnvelope& envelope) const {
    const PaintPoint upperLeft = Place(envelope.XMin(), envelope.YMax());
    const PaintPoint lowerRight = Place(envelope.XMax(), envelope.YMin());
    return {upperLeft.x, upperLeft.y, lowerRight.x, lowerRight.y};
}

std::optional<pdf::Color> VisibleColor(const host::Ref<host::IHostColor>& color) {
    if (!color || color->Transparent()) return std::nullopt;
    return ColorOf(*color);
}

FontSpec FontOf(const host::IHostTextSymbol& symbol) {
    FontSpec spec;
    spec.points = symbol.Size();
    if (const auto font = symbol.Font()) {
        spec.family = font->Name();
        spec.bold = font->Bold();
        spec.italic = IsItalic(*font);
    }
    return spec;
}

}  // namespace desk
