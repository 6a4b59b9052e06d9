#pragma once

#include <unordered_map>

#include "host/Devices.h"

namespace desk {

/// Drawing calls on the surfaces of the process. A brush that does not exist may be deleted.
class Devices final : public host::IHostDevices {
public:
    host::Brush CreateSolidBrush(std::uint32_t color) override;
    void FillRect(host::DeviceContext device, const host::PixelRectangle& rectangle,
                  host::Brush brush) override;
    void DeleteObject(host::Brush brush) override { colors_.erase(brush); }
    /// Fails for a device that does not exist.
    std::int32_t GetDeviceCaps(host::DeviceContext device, std::int32_t index) override;

private:
    std::unordered_map<host::Brush, std::uint32_t> colors_;
    host::Brush next_ = 1;
};

}  // namespace desk
