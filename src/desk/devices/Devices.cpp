#include "desk/devices/Devices.h"

#include <cmath>
#include <string>

#include "desk/devices/CairoShapes.h"
#include "desk/devices/PixelSurface.h"
#include "host/Failure.h"

namespace desk {

host::Brush Devices::CreateSolidBrush(std::uint32_t color) {
    const host::Brush brush = next_++;
    colors_.emplace(brush, color);
    return brush;
}

void Devices::FillRect(host::DeviceContext device, const host::PixelRectangle& rectangle,
                       host::Brush brush) {
    const auto color = colors_.find(brush);
    if (color == colors_.end())
        throw host::Failure(host::kFailureTypeMismatch, "Devices",
                            "There is no brush with the handle " + std::to_string(brush) + ".");
    const auto context = PixelSurface::Of(device).NewContext();
    const PaintBox box{static_cast<double>(rectangle.left), static_cast<double>(rectangle.top),
                       static_cast<double>(rectangle.right), static_cast<double>(rectangle.bottom)};
    FillBoxes(context.get(), {&box, 1}, color->second);
}

std::int32_t Devices::GetDeviceCaps(host::DeviceContext device, std::int32_t index) {
    const PixelSurface& surface = PixelSurface::Of(device);
    if (index != host::kLogicalPixelsY) return 0;
    return static_cast<std::int32_t>(std::lround(surface.DotsPerInch()));
}

}  // namespace desk
