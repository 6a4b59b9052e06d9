#include "support/basDrawSymbol.h"

#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

constexpr auto kNotCleared = static_cast<std::int32_t>(0x80041B5AU);
constexpr auto kNoBrush = static_cast<std::int32_t>(0x80041B5BU);
constexpr auto kNoResolution = static_cast<std::int32_t>(0x80041B5EU);
constexpr auto kNothingToDrawWith = static_cast<std::int32_t>(0x80041B60U);

bool Clear(host::IHostDevices& devices, host::DeviceContext device, std::uint32_t color,
           const host::PixelRectangle& rectangle) {
    host::Brush brush = 0;
    bool cleared = false;
    // The failure is dropped here: the caller raises an error of its own.
    try {
        brush = devices.CreateSolidBrush(color);
        if (brush == 0) Raise(kNoBrush, "basDrawSymbol.Clear", "Could not create GDI Brush.");
        devices.FillRect(device, rectangle, brush);
        cleared = true;
    } catch (...) {
    }
    try {
        if (brush != 0) devices.DeleteObject(brush);
    } catch (...) {
        cleared = false;
    }
    return cleared;
}

// Draws, and releases the device also if drawing throws; that failure is the one passed on.
void Draw(host::IHostSymbol& symbol, host::DeviceContext device,
          const host::Ref<host::IHostDisplayTransformation>& transformation,
          const host::Ref<host::IHostGeometry>& geometry) {
    symbol.PrepareDevice(device, transformation);
    try {
        symbol.DrawGeometry(geometry);
    } catch (...) {
        try {
            symbol.ReleaseDevice();
        } catch (...) {
        }
        throw;
    }
    symbol.ReleaseDevice();
}

host::Ref<host::IHostEnvelope> MakeEnvelope(host::IHostGeometryFactory& host, double xmin,
                                            double ymin, double xmax, double ymax) {
    auto envelope = host.NewEnvelope();
    envelope->SetCoords(xmin, ymin, xmax, ymax);
    return envelope;
}

host::Ref<host::IHostDisplayTransformation> CreateTransFromDC(host::IHost& host,
                                                              host::DeviceContext device,
                                                              std::int32_t width,
                                                              std::int32_t height) try {
    const auto extent = MakeEnvelope(host, 0, 0, width, height);
    const std::int32_t resolution = host.Devices().GetDeviceCaps(device, host::kLogicalPixelsY);
    if (resolution == 0)
        Raise(kNoResolution, "basDrawSymbol.CreateTransFromDC",
              "Could not retrieve Resolution from device context.");
    auto transformation = host.NewDisplayTransformation();
    transformation->SetShownExtent(extent);
    transformation->SetFullExtent(extent);
    transformation->SetDeviceRectangle({0, 0, width, height});
    transformation->SetDotsPerInch(resolution);
    return transformation;
} catch (...) {
    return nullptr;
}

host::Ref<host::IHostGeometry> MakePreviewGeometry(
    host::IHostGeometryFactory& host, const host::Ref<host::IHostSymbol>& symbol,
    const host::Ref<host::IHostEnvelope>& envelope) try {
    if (host::As<host::IHostMarkerSymbol>(symbol)) return envelope->Centre();
    if (!host::As<host::IHostTextSymbol>(symbol) && !host::As<host::IHostLineSymbol>(symbol))
        return envelope;
    auto line = host.NewLine();
    line->SetStartPoint(envelope->BottomLeft());
    line->SetEndPoint(envelope->BottomRight());
    return line;
} catch (...) {
    return nullptr;
}

}  // namespace

bool DrawToDC(host::IHost& host, host::DeviceContext device, std::int32_t width,
              std::int32_t height, const host::Ref<host::IHostSymbol>& symbol,
              std::int32_t gap) noexcept try {
    if (device == 0) return false;
    if (!Clear(host.Devices(), device, kWhite, {0, 0, width, height}))
        Raise(kNotCleared, "basDrawSymbol.DrawToDC", "Could not clear the Device Context.");
    const auto envelope =
        MakeEnvelope(host, gap, (static_cast<double>(height) - gap) / 2,
                     static_cast<double>(width) - gap, static_cast<double>(height) - gap);
    const auto transformation = CreateTransFromDC(host, device, width, height);
    const auto geometry = MakePreviewGeometry(host, symbol, envelope);
    if (!transformation || !geometry)
        Raise(kNothingToDrawWith, "basDrawSymbol.DrawToDC",
              "Could not create required Transformation or Geometry for this draw operation.");
    Draw(*Require<host::IHostSymbol>(symbol), device, transformation, geometry);
    return true;
} catch (...) {
    ShowAtTop(host.Dialogs(), "DrawToDC", kDrawSymbolLabel);
    return false;
}

}  // namespace gazetteer
