#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pdf/color/Color.h"

/// Colours as people write them: "#RRGGBB", or inks. "cmyk(0,100,80,10)" are percent. A spot colour
/// can tell what stands in for it on process plates, and on a screen: "spot(Reflex Blue)",
/// "spot(Reflex Blue, cmyk(100,80,0,5))", "spot(Reflex Blue, #001489)", or with both. Without any
/// of these black stands in for it.
namespace pdf {

/// Returns nothing for another form than "#RRGGBB"; the result is 0xBBGGRR.
std::optional<std::uint32_t> ParseRgb(std::string_view text);
std::string RgbText(std::uint32_t rgb);

/// Returns nothing for another form, for shares outside 0 to 100, and for a spot colour that has no
/// name, one longer than files can hold, or one that means other inks ("All", "None", "Cyan",
/// "Magenta", "Yellow", "Black").
std::optional<Color> ParseColor(std::string_view text);
/// Returns a text that ParseColor reads as the same colour: the ink, or "#RRGGBB" without one.
std::string ColorText(const Color& color);

/// Whether a text begins like an ink, so that commas in it do not end it.
bool BeginsAsInk(std::string_view text);

}  // namespace pdf
