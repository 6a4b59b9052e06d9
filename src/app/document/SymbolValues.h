#pragma once

#include <optional>
#include <string>

#include "host/Host.h"

/// Symbols as values of the command line.
namespace app {

/// "FAMILY,SIZE[,bold][,#RRGGBB]": a text symbol, or nothing for a text of another form. What is
/// left out is off, or black. A family may hold no comma.
host::Ref<host::IHostTextSymbol> ParseTextSymbol(host::IHost& host, const std::string& value);

/// "#RRGGBB": a fill symbol, or null.
host::Ref<host::IHostFillSymbol> ParseFillSymbol(host::IHost& host, const std::string& value);

/// "#RRGGBB" of a colour.
std::string ColorText(std::uint32_t rgb);

std::string TextSymbolText(host::IHostTextSymbol& symbol);

/// Decimal text of a number with a point, as short as reads back the same.
std::string NumberText(double value);

/// The number that a whole text is, with "." as separator; nothing for any other text.
std::optional<double> ParseDecimal(const std::string& text);

}  // namespace app
