#include "desk/drawing/Looks.h"

#include "desk/devices/Ink.h"

namespace desk {

// A font is not looked for where no text shows.
TextLook Looks::Read(const host::IHostTextSymbol& symbol) {
    const auto color = VisibleColor(symbol.Color());
    if (!color) return {};
    return {&engine_.Find(FontOf(symbol)),
            {symbol.HorizontalPlacement(), symbol.VerticalPlacement(), symbol.Angle()},
            color};
}

FillLook Looks::Read(const host::IHostFillSymbol& symbol) {
    const auto outline = symbol.Outline();
    return {VisibleColor(symbol.Color()), outline ? VisibleColor(outline->Color()) : std::nullopt};
}

}  // namespace desk
