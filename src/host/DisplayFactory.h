#pragma once

#include <cstdint>

#include "host/Display.h"

namespace host {

/// Makes what is drawn on and how it is mapped there.
struct IHostDisplayFactory : virtual IHostObject {
    virtual Ref<IHostDisplayTransformation> NewDisplayTransformation() = 0;
    /// An area of pixels, at least 1 by 1, all transparent.
    virtual Ref<IHostPixelSurface> NewPixelSurface(std::int32_t width, std::int32_t height,
                                                   double dotsPerInch) = 0;
    virtual IHostDevices& Devices() = 0;
};

}  // namespace host
