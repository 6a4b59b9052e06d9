#include "desk/devices/PreparedDevice.h"

#include "desk/devices/SymbolCanvas.h"
#include "host/Failure.h"

namespace desk {

PreparedDevice::PreparedDevice() = default;
PreparedDevice::~PreparedDevice() = default;

void PreparedDevice::Prepare(host::DeviceContext device,
                             const host::Ref<host::IHostDisplayTransformation>& transformation) {
    canvas_.reset();
    canvas_ = std::make_unique<SymbolCanvas>(device, transformation);
}

void PreparedDevice::Release() {
    canvas_.reset();
}

const SymbolCanvas& PreparedDevice::Canvas() const {
    if (!canvas_)
        throw host::Failure(host::kFailureUnspecified, "PreparedDevice",
                            "A symbol was drawn that had not been given a device.");
    return *canvas_;
}

}  // namespace desk
