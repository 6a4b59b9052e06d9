#pragma once

#include "host/Symbols.h"

namespace desk {

/// Optional on a font: italic letters. The component does not ask for it, hence it is not among
/// the properties of host::IHostFont.
struct IItalicFont : virtual host::IHostObject {
    virtual bool Italic() const = 0;
    virtual void SetItalic(bool italic) = 0;
};

/// Returns false for a font without the interface.
inline bool IsItalic(const host::IHostFont& font) {
    const auto* own = dynamic_cast<const IItalicFont*>(&font);
    return own != nullptr && own->Italic();
}

/// Has no effect on a font without the interface.
inline void SetItalic(host::IHostFont& font, bool italic) {
    if (auto* own = dynamic_cast<IItalicFont*>(&font)) own->SetItalic(italic);
}

}  // namespace desk
