#pragma once

#include "Values.h"

/// What texts and areas look like. A terminal has one font, and draws nothing but texts.
namespace texthost {

class Font final : public host::IHostFont {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<Font>();
        copy->name_ = name_;
        copy->size_ = size_;
        copy->bold_ = bold_;
        return copy;
    }
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name; }
    double Size() const override { return size_; }
    void SetSize(double points) override { size_ = points; }
    bool Bold() const override { return bold_; }
    void SetBold(bool bold) override { bold_ = bold; }

private:
    std::string name_;
    double size_ = 10;
    bool bold_ = false;
};

class Color final : public host::IHostColor {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<Color>();
        copy->rgb_ = rgb_;
        copy->transparent_ = transparent_;
        return copy;
    }
    std::uint32_t RGB() const override { return rgb_; }
    void SetRGB(std::uint32_t rgb) override { rgb_ = rgb; }
    bool Transparent() const override { return transparent_; }
    void SetTransparent(bool transparent) override { transparent_ = transparent; }

private:
    std::uint32_t rgb_ = 0;
    bool transparent_ = false;
};

/// A terminal draws nothing but texts.
template <class Kind>
class Undrawn : public Kind {
public:
    void PrepareDevice(host::DeviceContext, const Ref<host::IHostDisplayTransformation>&) override {
    }
    void DrawGeometry(const Ref<host::IHostGeometry>&) override {}
    void ReleaseDevice() override {}
};

class LineSymbol : public Undrawn<host::IHostLineSymbol> {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<LineSymbol>();
        copy->color_ = CopyOf(color_);
        return copy;
    }
    Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const Ref<host::IHostColor>& color) override { color_ = color; }

private:
    Ref<host::IHostColor> color_ = std::make_shared<texthost::Color>();
};

class FillSymbol : public Undrawn<host::IHostFillSymbol> {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<FillSymbol>();
        copy->color_ = CopyOf(color_);
        copy->outline_ = CopyOf(outline_);
        return copy;
    }
    Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const Ref<host::IHostColor>& color) override { color_ = color; }
    Ref<host::IHostLineSymbol> Outline() const override { return outline_; }
    void SetOutline(const Ref<host::IHostLineSymbol>& outline) override { outline_ = outline; }

private:
    Ref<host::IHostColor> color_ = std::make_shared<texthost::Color>();
    Ref<host::IHostLineSymbol> outline_;
};

/// All characters of a terminal are equally wide. This is the only place that knows a font's size.
class TextSymbol : public Undrawn<host::IHostTextSymbol> {
public:
    static constexpr double kCharacterWidth = 0.6;  ///< Of the font's size, as is a line's height.
    static constexpr double kLineHeight = 1.2;

    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<TextSymbol>();
        copy->font_ = CopyOf(font_);
        copy->color_ = CopyOf(color_);
        copy->horizontal_ = horizontal_;
        copy->vertical_ = vertical_;
        copy->angle_ = angle_;
        copy->text_ = text_;
        return copy;
    }
    Ref<host::IHostFont> Font() const override { return font_; }
    void SetFont(const Ref<host::IHostFont>& font) override { font_ = font; }
    double Size() const override { return font_->Size(); }
    void SetSize(double points) override { font_->SetSize(points); }
    Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const Ref<host::IHostColor>& color) override { color_ = color; }
    std::int32_t VerticalPlacement() const override { return vertical_; }
    void SetVerticalPlacement(std::int32_t placement) override { vertical_ = placement; }
    std::int32_t HorizontalPlacement() const override { return horizontal_; }
    void SetHorizontalPlacement(std::int32_t placement) override { horizontal_ = placement; }
    double Angle() const override { return angle_; }
    void SetAngle(double degrees) override { angle_ = degrees; }
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override { text_ = text; }

    host::TextExtent MeasureText(host::DeviceContext, const Ref<host::IHostDisplayTransformation>&,
                                 const std::string& text) override {
        std::size_t widest = 0;
        std::size_t width = 0;
        std::size_t lines = 1;
        for (const char byte : text) {
            if (byte == '\n') {
                ++lines;
                width = 0;
            } else if (byte != '\r' && (static_cast<unsigned char>(byte) & 0xC0U) != 0x80) {
                widest = std::max(widest, ++width);  // Bytes that continue a character are no more.
            }
        }
        return {static_cast<double>(widest) * kCharacterWidth * Size(),
                static_cast<double>(lines) * kLineHeight * Size()};
    }

private:
    Ref<host::IHostFont> font_ = std::make_shared<texthost::Font>();
    Ref<host::IHostColor> color_ = std::make_shared<texthost::Color>();
    std::int32_t horizontal_ = 0;
    std::int32_t vertical_ = 0;
    double angle_ = 0;
    std::string text_;
};

}  // namespace texthost
