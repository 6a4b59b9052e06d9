#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Host.h"

/// Settings, shapes and symbols: plain values behind interfaces. Copies are deep where it counts,
/// since the component changes its own copies of symbols and sets during a run.
namespace texthost {

using host::Ref;

[[noreturn]] inline void Fail(const std::string& text) {
    throw host::Failure(host::kFailureUnspecified, "texthost", text);
}

class PropertySet final : public host::IHostPropertySet {
public:
    std::int32_t Count() const override { return static_cast<std::int32_t>(items_.names.size()); }
    host::Variant Item(const std::string& name) const override {
        if (const auto at = Find(name); at < items_.names.size()) return items_.values[at];
        throw host::Failure(host::kFailureNotFound, "PropertySet", "There is no \"" + name + "\".");
    }
    host::PropertyItems AllItems() const override { return items_; }
    void SetItem(const std::string& name, host::Variant value) override {
        if (const auto at = Find(name); at < items_.names.size()) {
            items_.values[at] = std::move(value);
        } else {
            items_.names.push_back(name);
            items_.values.push_back(std::move(value));
        }
    }
    void RemoveItem(const std::string& name) override {
        const auto at = static_cast<std::ptrdiff_t>(Find(name));
        if (at == Count()) return;
        items_.names.erase(items_.names.begin() + at);
        items_.values.erase(items_.values.begin() + at);
    }
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<PropertySet>();
        for (std::size_t i = 0; i < items_.names.size(); ++i) {
            auto value = items_.values[i];
            if (auto* const object = std::get_if<Ref<host::IHostObject>>(&value))
                if (const auto clonable = host::As<host::IHostClonable>(*object))
                    *object = clonable->Copy();
            copy->SetItem(items_.names[i], std::move(value));
        }
        return copy;
    }

private:
    std::size_t Find(const std::string& name) const {
        return static_cast<std::size_t>(std::ranges::find(items_.names, name) -
                                        items_.names.begin());
    }

    host::PropertyItems items_;
};

class ObjectCopy final : public host::IHostObjectCopy {
public:
    Ref<host::IHostObject> Copy(const Ref<host::IHostObject>& object) override {
        const auto clonable = host::As<host::IHostClonable>(object);
        return clonable ? clonable->Copy() : object;
    }
};

class Point;

class Envelope final : public host::IHostEnvelope {
public:
    Ref<host::IHostObject> Copy() const override { return Bounds(); }
    Ref<host::IHostEnvelope> Bounds() const override {
        auto copy = std::make_shared<Envelope>();
        copy->SetCoords(xmin_, ymin_, xmax_, ymax_);
        return copy;
    }
    void Shift(double dx, double dy) override {
        SetCoords(xmin_ + dx, ymin_ + dy, xmax_ + dx, ymax_ + dy);
    }
    double XMin() const override { return xmin_; }
    double YMin() const override { return ymin_; }
    double XMax() const override { return xmax_; }
    double YMax() const override { return ymax_; }
    double Width() const override { return xmax_ - xmin_; }
    double Height() const override { return ymax_ - ymin_; }
    void SetHeight(double height) override { ymax_ = ymin_ + height; }
    Ref<host::IHostPoint> Centre() const override;
    Ref<host::IHostPoint> TopLeft() const override;
    Ref<host::IHostPoint> BottomLeft() const override;
    Ref<host::IHostPoint> BottomRight() const override;
    void SetCoords(double xmin, double ymin, double xmax, double ymax) override {
        xmin_ = xmin;
        ymin_ = ymin;
        xmax_ = xmax;
        ymax_ = ymax;
    }

private:
    double xmin_ = 0;
    double ymin_ = 0;
    double xmax_ = 0;
    double ymax_ = 0;
};

class Point final : public host::IHostPoint {
public:
    explicit Point(double x = 0, double y = 0) : x_(x), y_(y) {}
    Ref<host::IHostObject> Copy() const override { return std::make_shared<Point>(x_, y_); }
    Ref<host::IHostEnvelope> Bounds() const override {
        auto bounds = std::make_shared<Envelope>();
        bounds->SetCoords(x_, y_, x_, y_);
        return bounds;
    }
    double X() const override { return x_; }
    double Y() const override { return y_; }
    void SetX(double x) override { x_ = x; }
    void SetY(double y) override { y_ = y; }

private:
    double x_;
    double y_;
};

inline Ref<host::IHostPoint> Envelope::Centre() const {
    return std::make_shared<Point>((xmin_ + xmax_) / 2, (ymin_ + ymax_) / 2);
}
inline Ref<host::IHostPoint> Envelope::TopLeft() const {
    return std::make_shared<Point>(xmin_, ymax_);
}
inline Ref<host::IHostPoint> Envelope::BottomLeft() const {
    return std::make_shared<Point>(xmin_, ymin_);
}
inline Ref<host::IHostPoint> Envelope::BottomRight() const {
    return std::make_shared<Point>(xmax_, ymin_);
}

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

class LineSymbol final : public Undrawn<host::IHostLineSymbol> {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<LineSymbol>();
        copy->color_ = color_;
        return copy;
    }
    Ref<host::IHostColor> Color() const override { return color_; }
    void SetColor(const Ref<host::IHostColor>& color) override { color_ = color; }

private:
    Ref<host::IHostColor> color_ = std::make_shared<texthost::Color>();
};

class FillSymbol final : public Undrawn<host::IHostFillSymbol> {
public:
    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<FillSymbol>();
        copy->color_ = color_;
        copy->outline_ = outline_;
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
class TextSymbol final : public Undrawn<host::IHostTextSymbol> {
public:
    static constexpr double kCharacterWidth = 0.6;  ///< Of the font's size, as is a line's height.
    static constexpr double kLineHeight = 1.2;

    Ref<host::IHostObject> Copy() const override {
        auto copy = std::make_shared<TextSymbol>();
        copy->font_ = host::As<host::IHostFont>(font_->Copy());
        copy->color_ = host::As<host::IHostColor>(color_->Copy());
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
