#pragma once

#include <cstddef>
#include <string>
#include <utility>

#include "host/Symbols.h"

namespace bench {

/// A text symbol that passes everything on to another and counts what it is asked for sizes. The
/// steps of a line are one question, however many they are, also where they are not told.
class CountingSymbol final : public host::IHostTextSymbol, public host::IHostTextSteps {
public:
    explicit CountingSymbol(host::Ref<host::IHostTextSymbol> symbol)
        : symbol_(std::move(symbol)), steps_(host::As<host::IHostTextSteps>(symbol_)) {}

    /// Since the last call.
    std::size_t TakeQuestions() { return std::exchange(questions_, 0); }

    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override {
        ++questions_;
        return symbol_->MeasureText(device, transformation, text);
    }
    bool MeasureSteps(host::DeviceContext device,
                      const host::Ref<host::IHostDisplayTransformation>& transformation,
                      const std::string& line, host::TextSteps& steps) override {
        ++questions_;
        return steps_ && steps_->MeasureSteps(device, transformation, line, steps);
    }

    /// @{ Passed on.
    host::Ref<host::IHostObject> Copy() const override { return symbol_->Copy(); }
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        symbol_->PrepareDevice(device, transformation);
    }
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        symbol_->DrawGeometry(geometry);
    }
    void ReleaseDevice() override { symbol_->ReleaseDevice(); }
    host::Ref<host::IHostFont> Font() const override { return symbol_->Font(); }
    void SetFont(const host::Ref<host::IHostFont>& font) override { symbol_->SetFont(font); }
    double Size() const override { return symbol_->Size(); }
    void SetSize(double points) override { symbol_->SetSize(points); }
    host::Ref<host::IHostColor> Color() const override { return symbol_->Color(); }
    void SetColor(const host::Ref<host::IHostColor>& color) override { symbol_->SetColor(color); }
    std::int32_t VerticalPlacement() const override { return symbol_->VerticalPlacement(); }
    void SetVerticalPlacement(std::int32_t placement) override {
        symbol_->SetVerticalPlacement(placement);
    }
    std::int32_t HorizontalPlacement() const override { return symbol_->HorizontalPlacement(); }
    void SetHorizontalPlacement(std::int32_t placement) override {
        symbol_->SetHorizontalPlacement(placement);
    }
    double Angle() const override { return symbol_->Angle(); }
    void SetAngle(double degrees) override { symbol_->SetAngle(degrees); }
    std::string Text() const override { return symbol_->Text(); }
    void SetText(const std::string& text) override { symbol_->SetText(text); }
    /// @}

private:
    host::Ref<host::IHostTextSymbol> symbol_;
    host::Ref<host::IHostTextSteps> steps_;
    std::size_t questions_ = 0;
};

}  // namespace bench
