#pragma once

#include <string>
#include <utility>

#include "host/Symbols.h"

namespace support {

/// A text symbol that passes everything on to another but what a derived one does itself.
class PassingSymbol : public host::IHostTextSymbol {
public:
    explicit PassingSymbol(host::Ref<host::IHostTextSymbol> real) : real_(std::move(real)) {}

    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override {
        return real_->MeasureText(device, transformation, text);
    }
    host::Ref<host::IHostObject> Copy() const override { return real_->Copy(); }
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        real_->PrepareDevice(device, transformation);
    }
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        real_->DrawGeometry(geometry);
    }
    void ReleaseDevice() override { real_->ReleaseDevice(); }
    host::Ref<host::IHostFont> Font() const override { return real_->Font(); }
    void SetFont(const host::Ref<host::IHostFont>& font) override { real_->SetFont(font); }
    double Size() const override { return real_->Size(); }
    void SetSize(double points) override { real_->SetSize(points); }
    host::Ref<host::IHostColor> Color() const override { return real_->Color(); }
    void SetColor(const host::Ref<host::IHostColor>& color) override { real_->SetColor(color); }
    std::int32_t VerticalPlacement() const override { return real_->VerticalPlacement(); }
    void SetVerticalPlacement(std::int32_t placement) override {
        real_->SetVerticalPlacement(placement);
    }
    std::int32_t HorizontalPlacement() const override { return real_->HorizontalPlacement(); }
    void SetHorizontalPlacement(std::int32_t placement) override {
        real_->SetHorizontalPlacement(placement);
    }
    double Angle() const override { return real_->Angle(); }
    void SetAngle(double degrees) override { real_->SetAngle(degrees); }
    std::string Text() const override { return real_->Text(); }
    void SetText(const std::string& text) override { real_->SetText(text); }

protected:
    host::Ref<host::IHostTextSymbol> real_;
};

}  // namespace support
