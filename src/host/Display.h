#pragma once

#include <cstdint>

#include "host/Devices.h"
#include "host/Geometry.h"

namespace host {

/// Turns map units into those of a device: the shown extent fills the device's rectangle, Y growing
/// upward in the one and downward in the other.
struct IHostDisplayTransformation : virtual IHostObject {
    virtual Ref<IHostEnvelope> ShownExtent() const = 0;
    virtual void SetShownExtent(const Ref<IHostEnvelope>& extent) = 0;
    virtual Ref<IHostEnvelope> FullExtent() const = 0;
    virtual void SetFullExtent(const Ref<IHostEnvelope>& extent) = 0;
    virtual PixelRectangle DeviceRectangle() const = 0;
    virtual void SetDeviceRectangle(const PixelRectangle& rectangle) = 0;
    virtual double DotsPerInch() const = 0;
    virtual void SetDotsPerInch(double dotsPerInch) = 0;
};

/// The surface on which texts and elements are measured.
struct IHostDisplay : virtual IHostObject {
    virtual host::DeviceContext DeviceContext() const = 0;
    virtual Ref<IHostDisplayTransformation> Transformation() const = 0;
    /// Opens a drawing bracket. Cache identifier -1 is no cache.
    virtual void BeginDrawing(host::DeviceContext device, int cacheId) = 0;
    virtual void EndDrawing() = 0;
};

/// Makes what is drawn on and how it is mapped there.
struct IHostDisplayFactory : virtual IHostObject {
    virtual Ref<IHostDisplayTransformation> NewDisplayTransformation() = 0;
    /// An area of pixels, at least 1 by 1, all transparent.
    virtual Ref<IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height,
                                                   double dotsPerInch) = 0;
    virtual IHostDevices& Devices() = 0;
};

}  // namespace host
