#include "app/document/HeadText.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include "app/document/Tokens.h"
#include "support/Text.h"

namespace app {
namespace {

constexpr std::string_view kFirst = "$$FIRST";
constexpr std::string_view kLast = "$$LAST";
constexpr char kEllipsis[] = "\u2026";

double WidthOf(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& text) {
    const auto display = host.NewApplication()->Document()->ActiveView()->Display();
    return symbol.MeasureText(display->DeviceContext(), display->Transformation(), text).xSize /
           host::kPointsPerInch;
}

// Returns a number of leading characters that are certainly too wide, or all. Shortened starts
// there because it removes one character at a time, which is slow for very long texts.
std::size_t TooWide(host::IHost& host, host::IHostTextSymbol& symbol, const std::string& text,
                    const std::vector<std::size_t>& characters, double width) {
    constexpr double kCertainly = 2;  // Times the width; ligatures can make a longer text narrower.
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (std::size_t tried = 64; tried < characters.size(); tried *= 2) {
        for (; count < tried; ++count) bytes += characters[count];
        if (WidthOf(host, symbol, text.substr(0, bytes)) > kCertainly * width) return count;
    }
    return characters.size();
}

// Cuts a text to the width (inches) and adds an ellipsis.
std::string Shortened(host::IHost& host, host::IHostTextSymbol& symbol, std::string text,
                      double width) {
    if (WidthOf(host, symbol, text) <= width) return text;
    auto characters = host.Locale().Characters(text);
    characters.resize(TooWide(host, symbol, text, characters, width));
    text.resize(std::accumulate(characters.begin(), characters.end(), std::size_t{0}));
    while (!characters.empty()) {
        text.resize(text.size() - characters.back());
        characters.pop_back();
        if (WidthOf(host, symbol, text + kEllipsis) <= width) break;
    }
    return text + kEllipsis;
}

bool Holds(const std::string& text, std::string_view token) {
    return text.find(token) != std::string::npos;
}

}  // namespace

std::string UnknownHeadToken(const std::string& text) {
    return UnknownToken(text,
                        [](std::string_view token) { return token == kFirst || token == kLast; });
}

std::string HeadText(host::IHost& host, host::IHostTextSymbol& symbol, std::string text,
                     const std::string& first, const std::string& last, double width) {
    const auto from = text.find(kFirst);
    const auto to = text.find(kLast, from);
    const bool isPair = from != std::string::npos && to != std::string::npos;
    if (isPair && (first.empty() || last.empty() || first == last))
        text.replace(from, to + kLast.size() - from, first.empty() ? kLast : kFirst);
    std::string rest = text;
    for (const auto token : {kFirst, kLast})
        rest = gazetteer::ReplaceAll(std::move(rest), token, "");
    const int names = (Holds(text, kFirst) ? 1 : 0) + (Holds(text, kLast) ? 1 : 0);
    const double share = (width - WidthOf(host, symbol, rest)) / std::max(names, 1);
    // The last one first, so that a token in its name is not replaced.
    for (const auto& [token, name] : {std::pair{kLast, &last}, std::pair{kFirst, &first}})
        if (const auto place = text.find(token); place != std::string::npos)
            text.replace(place, token.size(), Shortened(host, symbol, *name, share));
    return names == 0 || share <= 0 ? Shortened(host, symbol, text, width) : text;
}

}  // namespace app
