#pragma once

#include "host/Display.h"

namespace desk {

class DisplayTransformation final : public host::IHostDisplayTransformation {
public:
    host::Ref<host::IHostEnvelope> ShownExtent() const override { return shown_; }
    void SetShownExtent(const host::Ref<host::IHostEnvelope>& extent) override { shown_ = extent; }
    host::Ref<host::IHostEnvelope> FullExtent() const override { return full_; }
    void SetFullExtent(const host::Ref<host::IHostEnvelope>& extent) override { full_ = extent; }
    host::PixelRectangle DeviceRectangle() const override { return device_; }
    void SetDeviceRectangle(const host::PixelRectangle& rectangle) override { device_ = rectangle; }
    double DotsPerInch() const override { return dotsPerInch_; }
    void SetDotsPerInch(double dotsPerInch) override { dotsPerInch_ = dotsPerInch; }

private:
    host::Ref<host::IHostEnvelope> shown_;
    host::Ref<host::IHostEnvelope> full_;
    host::PixelRectangle device_;
    double dotsPerInch_ = 96;
};

}  // namespace desk
