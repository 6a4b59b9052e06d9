#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "desk/devices/InkColor.h"
#include "desk/devices/SymbolCanvas.h"
#include "desk/text/ItalicFont.h"
#include "host/Symbols.h"

namespace desk {

/// Initially Helvetica, 10 points, neither bold nor italic.
class Font final : public host::IHostFont, public IItalicFont {
public:
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name, ++version_; }
    double Size() const override { return size_; }
    void SetSize(double points) override { size_ = points, ++version_; }
    bool Bold() const override { return bold_; }
    void SetBold(bool bold) override { bold_ = bold, ++version_; }
    bool Italic() const override { return italic_; }
    void SetItalic(bool italic) override { italic_ = italic, ++version_; }
    host::Ref<host::IHostObject> Copy() const override;
    /// Changes whenever the font changes.
    std::uint32_t Version() const { return version_; }

private:
    std::string name_ = "Helvetica";
    double size_ = 10;
    bool bold_ = false;
    bool italic_ = false;
    std::uint32_t version_ = 0;
};

/// Initially black, without ink. Keeps the lower 24 bits of a value. Another value takes the ink
/// away, which belongs to the last one.
class Color final : public host::IHostColor, public IInkColor {
public:
    Color() = default;
    explicit Color(std::uint32_t rgb) { Color::SetRGB(rgb); }

    std::uint32_t RGB() const override { return rgb_; }
    void SetRGB(std::uint32_t rgb) override {
        rgb &= 0xFFFFFFU;
        if (rgb != rgb_) ink_ = nullptr;
        rgb_ = rgb;
    }
    std::shared_ptr<const pdf::Ink> Ink() const override { return ink_; }
    void SetInk(const std::shared_ptr<const pdf::Ink>& ink) override { ink_ = ink; }
    bool Transparent() const override { return transparent_; }
    void SetTransparent(bool transparent) override { transparent_ = transparent; }
    host::Ref<host::IHostObject> Copy() const override;

private:
    std::uint32_t rgb_ = 0;
    bool transparent_ = false;
    std::shared_ptr<const pdf::Ink> ink_;
};

/// Base of all symbols: a colour, and a device between PrepareDevice and ReleaseDevice. Symbols
/// keep and return the font, colour and outline objects that are set; a copy of a symbol copies
/// them too. Throws for a null font or colour, and for drawing on an unsupported geometry or
/// without a prepared device.
template <class Kind>
class SymbolBase : public Kind {
public:
    host::Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const host::Ref<host::IHostColor>& color) override {
        Need(color.get(), "colour");
        color_ = color;
    }
    void PrepareDevice(host::DeviceContext device,
                       const host::Ref<host::IHostDisplayTransformation>& transformation) override {
        canvas_.reset();
        canvas_ = std::make_unique<SymbolCanvas>(device, transformation);
    }
    void ReleaseDevice() override { canvas_.reset(); }

protected:
    /// Such as "line symbol"; for messages.
    virtual const char* KindName() const = 0;
    /// Throws host::Failure if the part is null.
    void Need(const void* part, const std::string& what) const;
    void CopyColorFrom(const SymbolBase& other) {
        color_ = host::As<host::IHostColor>(other.color_->Copy());
    }
    /// Throws host::Failure if no device has been prepared.
    const SymbolCanvas& Canvas() const;
    [[noreturn]] void FailGeometry(const std::string& accepted) const;

private:
    host::Ref<host::IHostColor> color_ = std::make_shared<desk::Color>();
    std::unique_ptr<SymbolCanvas> canvas_;  ///< A pointer, because there may be very many symbols.
};

class LineSymbol final : public SymbolBase<host::IHostLineSymbol> {
public:
    host::Ref<host::IHostObject> Copy() const override;
    /// Accepts a line, or an envelope whose edges are drawn.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;

protected:
    const char* KindName() const override { return "line symbol"; }
};

/// Initially without outline.
class FillSymbol final : public SymbolBase<host::IHostFillSymbol> {
public:
    host::Ref<host::IHostLineSymbol> Outline() const override { return outline_; }
    void SetOutline(const host::Ref<host::IHostLineSymbol>& outline) override {
        outline_ = outline;
    }
    host::Ref<host::IHostObject> Copy() const override;
    /// Accepts an envelope; the outline is drawn on top.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;

protected:
    const char* KindName() const override { return "fill symbol"; }

private:
    host::Ref<host::IHostLineSymbol> outline_;
};

/// Has no markup: all characters of a text are literal.
class TextSymbol final : public SymbolBase<host::IHostTextSymbol>, public host::IHostTextParser {
public:
    explicit TextSymbol(std::shared_ptr<TextEngine> engine);

    /// Returns the font of the texts with its current properties.
    const ResolvedFont& Resolved();

    host::Ref<host::IHostFont> Font() const override { return font_; }
    void SetFont(const host::Ref<host::IHostFont>& font) override;
    double Size() const override { return font_->Size(); }
    void SetSize(double points) override { font_->SetSize(points); }
    std::int32_t VerticalPlacement() const override { return vertical_; }
    /// Throws outside 0 to 3.
    void SetVerticalPlacement(std::int32_t placement) override;
    std::int32_t HorizontalPlacement() const override { return horizontal_; }
    /// Throws outside 0 to 3.
    void SetHorizontalPlacement(std::int32_t placement) override;
    double Angle() const override { return angle_; }
    void SetAngle(double degrees) override { angle_ = degrees; }
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override { text_ = text; }
    /// The result does not depend on the device or the transformation.
    host::TextExtent MeasureText(host::DeviceContext device,
                                 const host::Ref<host::IHostDisplayTransformation>& transformation,
                                 const std::string& text) override;
    host::ParsedText PlainText(const std::string& text) override { return {text, {}}; }
    host::Ref<host::IHostObject> Copy() const override;
    /// Accepts a point or a line. On a line, the horizontal placement puts the text at its start,
    /// middle or end, and the vertical placement above, on or below it.
    void DrawGeometry(const host::Ref<host::IHostGeometry>& geometry) override;

protected:
    const char* KindName() const override { return "text symbol"; }

private:
    std::shared_ptr<TextEngine> engine_;
    host::Ref<host::IHostFont> font_;
    const desk::Font* ownFont_ = nullptr;  ///< The font if it is a desk::Font, else null.
    const ResolvedFont* resolved_ = nullptr;
    std::uint32_t resolvedVersion_ = 0;  ///< Version of ownFont_ when resolved_ was set.
    std::string text_;
    double angle_ = 0;
    std::int32_t vertical_ = 0;
    std::int32_t horizontal_ = 0;
};

}  // namespace desk
