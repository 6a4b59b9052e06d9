#pragma once

#include "host/Symbols.h"

namespace host {

/// Turns page units into those of a device.
struct IHostDisplayTransformation : virtual IHostObject {};

/// The surface on which texts and elements are measured.
struct IHostDisplay : virtual IHostObject {
    virtual DeviceContext Device() const = 0;
    virtual Ref<IHostDisplayTransformation> Transformation() const = 0;
    /// Opens a drawing bracket. Cache identifier -1 is no cache.
    virtual void BeginDrawing(DeviceContext device, int cacheId) = 0;
    virtual void EndDrawing() = 0;
};

}  // namespace host
