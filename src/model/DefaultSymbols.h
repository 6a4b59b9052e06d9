#pragma once

#include <cstdint>

#include "model/ColumnProperties.h"

/// The symbols that a new column gets.
namespace gazetteer {

/// Red in the lowest byte, as the host's colours have it.
constexpr std::uint32_t RGB(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return red | green << 8 | blue << 16;
}

/// Helvetica in black, anchored at the left and at the middle of its height.
host::Ref<host::IHostTextSymbol> MakeTextSymbol(host::IHost& host, double points, bool bold);

/// A new fill of which only the colour is set.
host::Ref<host::IHostFillSymbol> MakeFillSymbol(host::IHostSymbolFactory& host, std::uint32_t rgb);

/// A text symbol's sample text: the font's name, a blank, then the size with a leading place for
/// its sign, "Helvetica  10".
std::string SampleText(host::IHost& host, const std::string& fontName, double points);

void SetDefaultSymbols(host::IHost& host, ColumnProperties& column);

}  // namespace gazetteer
