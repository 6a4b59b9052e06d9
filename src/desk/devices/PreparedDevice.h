#pragma once

#include <memory>

#include "host/Symbols.h"

namespace desk {

class SymbolCanvas;

/// What a symbol keeps between PrepareDevice and ReleaseDevice: one pointer, since there are tens
/// of thousands of symbols.
class PreparedDevice {
public:
    PreparedDevice();
    ~PreparedDevice();
    PreparedDevice(const PreparedDevice&) = delete;
    PreparedDevice& operator=(const PreparedDevice&) = delete;

    /// In place of one that was not released.
    void Prepare(host::DeviceContext device,
                 const host::Ref<host::IHostDisplayTransformation>& transformation);
    void Release();
    /// Fails where no device has been prepared.
    const SymbolCanvas& Canvas() const;

private:
    std::unique_ptr<SymbolCanvas> canvas_;
};

}  // namespace desk
