#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "desk/devices/PreparedDevice.h"
#include "host/Symbols.h"

namespace desk {

class TextEngine;
struct ResolvedFont;

/// Helvetica 10, not bold, at first.
class Font final : public host::IHostFont {
public:
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name, ++version_; }
    double Size() const override { return size_; }
    void SetSize(double points) override { size_ = points, ++version_; }
    bool Bold() const override { return bold_; }
    void SetBold(bool bold) override { bold_ = bold, ++version_; }
    host::Ref<host::IHostObject> Copy() const override;
    /// Another number after each change.
    std::uint32_t Version() const { return version_; }

private:
    std::string name_ = "Helvetica";
    double size_ = 10;
    bool bold_ = false;
    std::uint32_t version_ = 0;
};

/// Black at first. Only the lower 24 bits of a value are kept.
class Color final : public host::IHostColor {
public:
    Color() = default;
    explicit Color(std::uint32_t rgb) { Color::SetRGB(rgb); }

    std::uint32_t RGB() const override { return rgb_; }
    void SetRGB(std::uint32_t rgb) override { rgb_ = rgb & 0xFFFFFFU; }
    bool Transparent() const override { return transparent_; }
    void SetTransparent(bool transparent) override { transparent_ = transparent; }
    host::Ref<host::IHostObject> Copy() const override;

private:
    std::uint32_t rgb_ = 0;
    bool transparent_ = false;
};

// Symbols keep the fonts, colours and outlines that are set on them and hand out the same objects
// again; their copies have copies of them. A missing font or colour is refused. Drawing fails on a
// geometry that the kind of symbol cannot be drawn on, and where no device has been prepared.

class LineSymbol final : public host::IHostLineSymbol {
public:
    LineSymbol();

    host::Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const host::Ref<host::IHostColor>& color) override;
    host::Ref<host::IHostObject> Copy() const override;
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        device_.Prepare(device, transformation);
    }
    /// A line, or the edges of an envelope.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    void ReleaseDevice() override { device_.Release(); }

private:
    host::Ref<host::IHostColor> color_;
    PreparedDevice device_;
};

/// Without outline at first.
class FillSymbol final : public host::IHostFillSymbol {
public:
    FillSymbol();

    host::Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const host::Ref<host::IHostColor>& color) override;
    host::Ref<host::IHostLineSymbol> Outline() const override { return outline_; }
    void SetOutline(const host::Ref<host::IHostLineSymbol>& outline) override;
    host::Ref<host::IHostObject> Copy() const override;
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        device_.Prepare(device, transformation);
    }
    /// An envelope, its outline on top.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    void ReleaseDevice() override { device_.Release(); }

private:
    host::Ref<host::IHostColor> color_;
    host::Ref<host::IHostLineSymbol> outline_;
    PreparedDevice device_;
};

/// Knows no markup: every character of a text stands for itself.
class TextSymbol final : public host::IHostTextSymbol, public host::IHostTextParser {
public:
    explicit TextSymbol(std::shared_ptr<TextEngine> engine);

    /// The font that texts are set in, as it is now.
    const ResolvedFont& Resolved();

    host::Ref<host::IHostFont> Font() const override { return font_; }
    void SetFont(const host::Ref<host::IHostFont>& font) override;
    double Size() const override { return font_->Size(); }
    void SetSize(double points) override { font_->SetSize(points); }
    host::Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const host::Ref<host::IHostColor>& color) override;
    std::int32_t VerticalPlacement() const override { return vertical_; }
    /// Fails outside 0 to 3.
    void SetVerticalPlacement(std::int32_t placement) override;
    std::int32_t HorizontalPlacement() const override { return horizontal_; }
    /// Fails outside 0 to 3.
    void SetHorizontalPlacement(std::int32_t placement) override;
    double Angle() const override { return angle_; }
    void SetAngle(double degrees) override { angle_ = degrees; }
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override { text_ = text; }
    /// The desk's sizes hang on no device: any device and transformation will do.
    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override;
    host::ParsedText PlainText(const std::string& text) override { return {text, {}}; }
    host::Ref<host::IHostObject> Copy() const override;
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        device_.Prepare(device, transformation);
    }
    /// On a point, or along a line: from its start, around its middle or to its end, as the
    /// horizontal placement says. The vertical placement tells how it stands to the line.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    void ReleaseDevice() override { device_.Release(); }

private:
    std::shared_ptr<TextEngine> engine_;
    host::Ref<host::IHostFont> font_;
    const desk::Font* ownFont_ = nullptr;  ///< The font, if it is the desk's.
    const ResolvedFont* resolved_ = nullptr;
    std::uint32_t resolvedVersion_ = 0;  ///< Of the desk's font, when it was resolved.
    host::Ref<host::IHostColor> color_;
    PreparedDevice device_;
    std::string text_;
    double angle_ = 0;
    std::int32_t vertical_ = 0;
    std::int32_t horizontal_ = 0;
};

}  // namespace desk
