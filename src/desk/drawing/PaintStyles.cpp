#include "desk/drawing/PaintStyles.h"

#include "desk/devices/SymbolStyle.h"

namespace desk {

// A font is not looked for where no text shows.
TextStyle PaintStyles::Read(const host::IHostTextSymbol& symbol) {
    const auto color = VisibleColor(symbol.Color());
    if (!color) return {};
    return {&engine_.Find(FontOf(symbol)),
            {symbol.HorizontalPlacement(), symbol.VerticalPlacement(), symbol.Angle()},
            color};
}

FillStyle PaintStyles::Read(const host::IHostFillSymbol& symbol) {
    const auto outline = symbol.Outline();
    return {VisibleColor(symbol.Color()), outline ? VisibleColor(outline->Color()) : std::nullopt};
}

}  // namespace desk
