#pragma once

#include <cstdint>

#include "host/Host.h"

/// Draws a symbol into a device context, for the previews of the property page. A preview has no
/// display, so this makes background, transformation and geometry itself.
/// Lengths are whole pixels of the device; the map space is that of the pixels, Y growing upward.
namespace gazetteer {

/// Clears the device to white and draws the symbol: a text or a line on the middle of the area, a
/// marker in the middle of its upper half, a fill over its upper half. The gap is left free on each
/// side. A top procedure: false for no device (0), and after a failure, which it shows.
bool DrawToDC(host::IHost& host, host::DeviceContext device, std::int32_t width,
              std::int32_t height, const host::Ref<host::IHostSymbol>& symbol,
              std::int32_t gap) noexcept;

}  // namespace gazetteer
