#include "desk/devices/SymbolStyle.h"

namespace desk {

std::optional<std::uint32_t> VisibleColor(const host::Ref<host::IHostColor>& color) {
    if (!color || color->Transparent()) return std::nullopt;
    return color->RGB();
}

FontSpec FontOf(const host::IHostTextSymbol& symbol) {
    const auto font = symbol.Font();
    FontSpec spec;
    spec.points = symbol.Size();
    if (font) {
        spec.family = font->Name();
        spec.bold = font->Bold();
    }
    return spec;
}

}  // namespace desk
