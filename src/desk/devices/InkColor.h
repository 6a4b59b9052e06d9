#pragma once

#include "host/Symbols.h"
#include "pdf/color/Color.h"

namespace desk {

/// Optional on a colour: the ink with which a press prints it. The component knows RGB alone, hence
/// it is not among the properties of host::IHostColor.
struct IInkColor : virtual host::IHostObject {
    /// Null: none is known.
    virtual std::shared_ptr<const pdf::Ink> Ink() const = 0;
    virtual void SetInk(const std::shared_ptr<const pdf::Ink>& ink) = 0;
};

/// Returns a colour without ink for one without the interface.
inline pdf::Color ColorOf(const host::IHostColor& color) {
    const auto* const own = dynamic_cast<const IInkColor*>(&color);
    return {color.RGB(), own ? own->Ink() : nullptr};
}

/// Sets RGB and, on a colour with the interface, the ink.
inline void SetColor(host::IHostColor& color, const pdf::Color& value) {
    color.SetRGB(value.rgb);
    if (auto* const own = dynamic_cast<IInkColor*>(&color)) own->SetInk(value.ink);
}

}  // namespace desk
