#pragma once

#include <cstdint>
#include <unordered_map>

#include "desk/devices/CairoShapes.h"
#include "host/Devices.h"

namespace desk {

/// A pixel area in memory, initially transparent. While it exists, all code of the process can find
/// it by its device context; handles are not reused. Surfaces must be used by one thread.
class PixelSurface final : public host::IHostPixelSurface {
public:
    /// Throws host::Failure for a size outside 1 to 32767 pixels and for a resolution that is not
    /// positive.
    PixelSurface(std::int32_t width, std::int32_t height, double dotsPerInch);
    ~PixelSurface() override;

    host::DeviceContext Device() const override { return device_; }
    std::int32_t Width() const override { return width_; }
    std::int32_t Height() const override { return height_; }
    std::span<const std::uint32_t> Pixels() override;

    double DotsPerInch() const { return dotsPerInch_; }
    /// Returns a context with one unit per pixel, Y downward.
    CairoContext NewContext() const { return CairoContext(cairo_create(surface_.get())); }

    /// Returns the surface of a device. Throws host::Failure for an unknown handle.
    static const PixelSurface& Of(host::DeviceContext device);

private:
    std::int32_t width_;
    std::int32_t height_;
    double dotsPerInch_;
    CairoSurface surface_;
    host::DeviceContext device_ = 0;
};

/// Drawing calls on the surfaces of the process. Deleting an unknown brush has no effect.
class Devices final : public host::IHostDevices {
public:
    host::Brush CreateSolidBrush(std::uint32_t color) override;
    /// Throws host::Failure for an unknown device or brush.
    void FillRect(host::DeviceContext device, const host::PixelRectangle& rectangle,
                  host::Brush brush) override;
    void DeleteObject(host::Brush brush) override { colors_.erase(brush); }
    /// Throws host::Failure for an unknown device.
    std::int32_t GetDeviceCaps(host::DeviceContext device, std::int32_t index) override;

private:
    std::unordered_map<host::Brush, std::uint32_t> colors_;
    host::Brush next_ = 1;
};

}  // namespace desk
