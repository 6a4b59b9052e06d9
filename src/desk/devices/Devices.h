#pragma once

#include <cstdint>
#include <unordered_map>

#include "desk/devices/CairoShapes.h"
#include "host/Devices.h"

namespace desk {

/// An area of pixels in memory, all transparent at first. Its device context can be found by all
/// code of the process as long as it lives, and its handle is not used again. Devices are for
/// one thread.
class PixelSurface final : public host::IHostPixelSurface {
public:
    /// Throws host::Failure for a size below 1 or above 32767 pixels, and for a resolution that is
    /// not positive.
    PixelSurface(std::int32_t width, std::int32_t height, double dotsPerInch);
    ~PixelSurface() override;

    host::DeviceContext Device() const override { return device_; }
    std::int32_t Width() const override { return width_; }
    std::int32_t Height() const override { return height_; }
    std::span<const std::uint32_t> Pixels() override;

    double DotsPerInch() const { return dotsPerInch_; }
    /// Returns a context of which one unit is a pixel, Y downward.
    CairoContext NewContext() const { return CairoContext(cairo_create(surface_.get())); }

    /// Returns the surface of a device. Throws host::Failure for a handle without a device.
    static const PixelSurface& Of(host::DeviceContext device);

private:
    std::int32_t width_;
    std::int32_t height_;
    double dotsPerInch_;
    CairoSurface surface_;
    host::DeviceContext device_ = 0;
};

/// Drawing calls on the surfaces of the process. A brush that does not exist may be deleted.
class Devices final : public host::IHostDevices {
public:
    host::Brush CreateSolidBrush(std::uint32_t color) override;
    /// Throws host::Failure for a device or a brush that does not exist.
    void FillRect(host::DeviceContext device, const host::PixelRectangle& rectangle,
                  host::Brush brush) override;
    void DeleteObject(host::Brush brush) override { colors_.erase(brush); }
    /// Throws host::Failure for a device that does not exist.
    std::int32_t GetDeviceCaps(host::DeviceContext device, std::int32_t index) override;

private:
    std::unordered_map<host::Brush, std::uint32_t> colors_;
    host::Brush next_ = 1;
};

}  // namespace desk
