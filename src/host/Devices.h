#pragma once

#include <cstdint>
#include <span>

#include "host/Symbols.h"

namespace host {

/// Handle of a brush. 0 is no brush.
using Brush = std::uintptr_t;

/// Whole pixels from the upper left corner; right and bottom are exclusive.
struct PixelRectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

/// Index of GetDeviceCaps: pixels per inch in the vertical direction.
inline constexpr std::int32_t kLogicalPixelsY = 90;

/// The platform's plain drawing calls on device contexts.
struct IHostDevices : virtual IHostObject {
    /// A brush of one colour, red in the lowest byte; 0 if none can be created.
    virtual Brush CreateSolidBrush(std::uint32_t color) = 0;
    /// Fails for a device or a brush that does not exist.
    virtual void FillRect(DeviceContext device, const PixelRectangle& rectangle, Brush brush) = 0;
    virtual void DeleteObject(Brush brush) = 0;
    /// A property of a device by its index; 0 for an unknown index or device.
    virtual std::int32_t GetDeviceCaps(DeviceContext device, std::int32_t index) = 0;
};

/// An area of pixels in memory with a device context of its own, which lives as long as it.
struct IHostPixelSurface : virtual IHostObject {
    virtual DeviceContext Device() const = 0;
    virtual std::int32_t Width() const = 0;
    virtual std::int32_t Height() const = 0;
    /// Row after row from the top, Width values each: alpha, red, green, blue from the highest byte
    /// down, colours multiplied by alpha.
    virtual std::span<const std::uint32_t> Pixels() = 0;
};

}  // namespace host
