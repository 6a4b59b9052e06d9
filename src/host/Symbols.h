#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/Object.h"

namespace host {

struct IHostDisplayTransformation;

/// Opaque handle of a drawing surface. 0 is no surface.
using DeviceContext = std::uintptr_t;

/// The standard font object.
struct IHostFont : virtual IHostClonable {
    virtual std::string Name() const = 0;
    virtual void SetName(const std::string& name) = 0;
    virtual double Size() const = 0;  ///< Points.
    virtual void SetSize(double points) = 0;
    virtual bool Bold() const = 0;
    virtual void SetBold(bool bold) = 0;
};

struct IHostColor : virtual IHostClonable {
    /// Red in the lowest byte, then green, then blue.
    virtual std::uint32_t RGB() const = 0;
    virtual void SetRGB(std::uint32_t rgb) = 0;
    virtual bool Transparent() const = 0;
    virtual void SetTransparent(bool transparent) = 0;
};

struct IHostGeometry;

/// Any symbol of the host. Drawing goes PrepareDevice, DrawGeometry, ReleaseDevice.
struct IHostSymbol : virtual IHostClonable {
    virtual void PrepareDevice(DeviceContext device,
                               const Ref<IHostDisplayTransformation>& transformation) = 0;
    /// Draws along or on a geometry: a text its sample text, from the start of a line.
    virtual void DrawGeometry(const Ref<IHostGeometry>& geometry) = 0;
    virtual void ReleaseDevice() = 0;
};

struct IHostMarkerSymbol : virtual IHostSymbol {};

struct IHostLineSymbol : virtual IHostSymbol {
    virtual Ref<IHostColor> Color() const = 0;
    virtual void SetColor(const Ref<IHostColor>& color) = 0;
};

struct IHostFillSymbol : virtual IHostSymbol {
    virtual Ref<IHostColor> Color() const = 0;
    virtual void SetColor(const Ref<IHostColor>& color) = 0;
    /// Null where the fill has no outline.
    virtual Ref<IHostLineSymbol> Outline() const = 0;
    virtual void SetOutline(const Ref<IHostLineSymbol>& outline) = 0;
};

/// Size of a text in points: the width of its widest line, the height of all its lines.
struct TextExtent {
    double xSize = 0;
    double ySize = 0;
};

struct IHostTextSymbol : virtual IHostSymbol {
    virtual Ref<IHostFont> Font() const = 0;
    virtual void SetFont(const Ref<IHostFont>& font) = 0;
    virtual double Size() const = 0;  ///< Points, the size of the font.
    virtual void SetSize(double points) = 0;
    virtual Ref<IHostColor> Color() const = 0;
    virtual void SetColor(const Ref<IHostColor>& color) = 0;
    /// Where the element's point stands in the text: 0 top, 1 middle, 2 baseline, 3 bottom.
    virtual std::int32_t VerticalPlacement() const = 0;
    virtual void SetVerticalPlacement(std::int32_t placement) = 0;
    /// 0 left, 1 center, 2 right, 3 justified.
    virtual std::int32_t HorizontalPlacement() const = 0;
    virtual void SetHorizontalPlacement(std::int32_t placement) = 0;
    virtual double Angle() const = 0;  ///< Degrees, counter-clockwise.
    virtual void SetAngle(double degrees) = 0;
    virtual std::string Text() const = 0;  ///< The sample text.
    virtual void SetText(const std::string& text) = 0;
    /// Size of a text in this symbol. Lines end at LF; a CR has no width. An empty text is one line
    /// high. Asked between BeginDrawing and EndDrawing of a display.
    virtual TextExtent MeasureText(DeviceContext device,
                                   const Ref<IHostDisplayTransformation>& transformation,
                                   const std::string& text) = 0;
};

/// A text split into its characters and its markup.
struct ParsedText {
    std::string plain;
    std::string extra;
};

/// Optional on a text symbol: parses the markup that its texts may contain.
struct IHostTextParser : virtual IHostObject {
    virtual ParsedText PlainText(const std::string& text) = 0;
};

/// Makes symbols and what they consist of.
struct IHostSymbolFactory : virtual IHostObject {
    virtual Ref<IHostFont> NewFont() = 0;
    virtual Ref<IHostColor> NewColor() = 0;
    virtual Ref<IHostTextSymbol> NewTextSymbol() = 0;
    virtual Ref<IHostFillSymbol> NewFillSymbol() = 0;
    virtual Ref<IHostLineSymbol> NewLineSymbol() = 0;
};

}  // namespace host
