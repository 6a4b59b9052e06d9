#pragma once

#include <cstdint>
#include <optional>

#include "desk/text/TextEngine.h"
#include "host/Symbols.h"

/// What symbols say of colours and fonts, in the form in which it is painted.
namespace desk {

/// 0xBBGGRR; nothing for a colour that does not show.
std::optional<std::uint32_t> VisibleColor(const host::Ref<host::IHostColor>& color);
FontSpec FontOf(const host::IHostTextSymbol& symbol);

}  // namespace desk
