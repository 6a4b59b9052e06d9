#include "app/document/SymbolValues.h"

#include <array>
#include <charconv>
#include <cmath>

#include "model/DefaultSymbols.h"
#include "support/Text.h"

namespace app {
namespace {

// Points. Type above some thousands of them makes drawing libraries fail, and no sheet needs it.
// Fonts are found to a 1024th of a point, and files tell sizes to a hundredth.
constexpr double kLargestType = 1000;
constexpr double kSmallestType = 0.1;

// "#RRGGBB" as a colour of the host's, which has red in its lowest byte.
std::optional<std::uint32_t> ParseColor(const std::string& text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data() + 1, text.data() + 7, value, 16);
    if (error != std::errc() || end != text.data() + 7) return std::nullopt;
    return gazetteer::RGB(value >> 16, value >> 8 & 0xFF, value & 0xFF);
}

}  // namespace

std::optional<double> ParseDecimal(const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

host::Ref<host::IHostTextSymbol> ParseTextSymbol(host::IHost& host, const std::string& value) {
    const auto pieces = gazetteer::Split(value, ',');
    if (pieces.size() < 2 || pieces.size() > 4 || pieces[0].empty()) return nullptr;
    const auto points = ParseDecimal(pieces[1]);
    if (!points || *points < kSmallestType || *points > kLargestType) return nullptr;
    std::size_t next = 2;
    const bool bold = next < pieces.size() && pieces[next] == "bold";
    if (bold) ++next;
    std::optional<std::uint32_t> color = 0;
    if (next < pieces.size()) color = ParseColor(pieces[next++]);
    if (next < pieces.size() || !color) return nullptr;

    auto symbol = gazetteer::MakeTextSymbol(host, *points, bold);
    symbol->Font()->SetName(pieces[0]);
    symbol->Color()->SetRGB(*color);
    symbol->SetText(gazetteer::SampleText(host, pieces[0], *points));
    return symbol;
}

host::Ref<host::IHostFillSymbol> ParseFillSymbol(host::IHost& host, const std::string& value) {
    const auto color = ParseColor(value);
    return color ? gazetteer::MakeFillSymbol(host, *color) : nullptr;
}

std::string ColorText(std::uint32_t rgb) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", rgb & 0xFF, rgb >> 8 & 0xFF,
                  rgb >> 16 & 0xFF);
    return text.data();
}

std::string NumberText(double value) {
    std::array<char, 32> text{};
    char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

std::string TextSymbolText(host::IHostTextSymbol& symbol) {
    std::string text = symbol.Font()->Name() + ',' + NumberText(symbol.Size());
    if (symbol.Font()->Bold()) text += ",bold";
    if (symbol.Color()->RGB() != 0) text += ',' + ColorText(symbol.Color()->RGB());
    return text;
}

}  // namespace app
