#pragma once

#include <cstdint>

#include "desk/devices/CairoHandles.h"
#include "host/Devices.h"

namespace desk {

/// An area of pixels in memory, all transparent at first. Its device context can be found by
/// everyone in the process as long as it lives, and its handle is not used again. Devices are for
/// the use of one thread.
class PixelSurface final : public host::IHostPixelSurface {
public:
    /// Fails for a size below 1 or above 32767 pixels, and for a resolution that is not positive.
    PixelSurface(std::int32_t width, std::int32_t height, double dotsPerInch);
    ~PixelSurface() override;

    host::DeviceContext Device() const override { return device_; }
    std::int32_t Width() const override { return width_; }
    std::int32_t Height() const override { return height_; }
    std::span<const std::uint32_t> Pixels() override;

    double DotsPerInch() const { return dotsPerInch_; }
    /// Draws on the pixels, one unit being a pixel, Y downward.
    CairoContext NewContext() const { return CairoContext(cairo_create(surface_.get())); }

    /// The surface behind a device. Fails for a handle that is no device's.
    static const PixelSurface& Of(host::DeviceContext device);

private:
    std::int32_t width_;
    std::int32_t height_;
    double dotsPerInch_;
    CairoSurface surface_;
    host::DeviceContext device_ = 0;
};

}  // namespace desk
