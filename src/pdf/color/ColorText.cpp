#include "pdf/color/ColorText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace pdf {
namespace {

constexpr std::string_view kCmyk = "cmyk(";
constexpr std::string_view kSpot = "spot(";
constexpr double kPercent = 100;

std::string_view WithoutBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Returns what is between the opening and the ")" at the end.
std::optional<std::string_view> Inside(std::string_view text, std::string_view opening) {
    if (!text.starts_with(opening) || !text.ends_with(')')) return std::nullopt;
    return text.substr(opening.size(), text.size() - opening.size() - 1);
}

/// Takes the text before the next comma.
std::string_view NextPiece(std::string_view& rest) {
    const auto comma = std::min(rest.find(','), rest.size());
    const auto piece = WithoutBlanks(rest.substr(0, comma));
    rest.remove_prefix(std::min(comma + 1, rest.size()));
    return piece;
}

std::optional<double> ParseShare(std::string_view text) {
    double percent = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), percent);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (std::isnan(percent) || percent < 0 || percent > kPercent) return std::nullopt;
    return percent / kPercent;
}

std::optional<Cmyk> ParseCmyk(std::string_view text) {
    auto rest = Inside(text, kCmyk);
    if (!rest || std::ranges::count(*rest, ',') != 3) return std::nullopt;
    Cmyk shares;
    for (double* const share : {&shares.cyan, &shares.magenta, &shares.yellow, &shares.black}) {
        const auto parsed = ParseShare(NextPiece(*rest));
        if (!parsed) return std::nullopt;
        *share = *parsed;
    }
    return shares;
}

bool IsSpotName(std::string_view name) {
    constexpr std::size_t kLongest = 127;  // Bytes of a name in a file.
    constexpr std::array kOther{"All", "None", "Cyan", "Magenta", "Yellow", "Black"};
    return !name.empty() && name.size() <= kLongest &&
           name.find_first_of("()#") == std::string_view::npos &&
           std::ranges::all_of(name, [](unsigned char c) { return c >= ' ' && c != 0x7F; }) &&
           std::ranges::find(kOther, name) == kOther.end();
}

/// How a screen shows process inks: as filters of ideal colours, without regard to a press.
std::uint32_t ScreenOf(const Cmyk& inks) {
    const auto light = [&](double share) {
        return static_cast<std::uint32_t>(std::lround(0xFF * (1 - share) * (1 - inks.black)));
    };
    return light(inks.cyan) | light(inks.magenta) << 8U | light(inks.yellow) << 16U;
}

/// How a screen shows an ink unless its colour is told.
std::uint32_t ScreenOf(const Ink& ink) {
    return ink.process ? ScreenOf(*ink.process) : 0;
}

std::optional<Color> ParseSpot(std::string_view rest) {
    Ink ink;
    ink.spot = NextPiece(rest);
    if (!IsSpotName(ink.spot)) return std::nullopt;
    rest = WithoutBlanks(rest);
    if (rest.starts_with(kCmyk)) {
        const auto end = std::min(rest.find(')'), rest.size() - 1) + 1;
        ink.process = ParseCmyk(rest.substr(0, end));
        if (!ink.process) return std::nullopt;
        rest = WithoutBlanks(rest.substr(end));
        if (!rest.empty() && rest[0] != ',') return std::nullopt;
        if (!rest.empty()) rest = WithoutBlanks(rest.substr(1));
    }
    const auto screen = rest.empty() ? ScreenOf(ink) : ParseRgb(rest);
    if (!screen) return std::nullopt;
    return Color(*screen, std::make_shared<const Ink>(ink));
}

std::string CmykText(const Cmyk& inks) {
    std::string text(kCmyk);
    for (const double share : {inks.cyan, inks.magenta, inks.yellow, inks.black}) {
        std::array<char, 32> digits{};
        // A millionth of a percent hides that shares are stored as fractions.
        const double percent = std::round(share * kPercent * 1e6) / 1e6;
        char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), percent).ptr;
        text.append(digits.data(), end);
        text += ',';
    }
    text.back() = ')';
    return text;
}

}  // namespace

std::optional<std::uint32_t> ParseRgb(std::string_view text) {
    if (text.size() != 7 || text[0] != '#') return std::nullopt;
    std::uint32_t value = 0;
    const char* const end = text.data() + text.size();
    const auto parsed = std::from_chars(text.data() + 1, end, value, 16);
    if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
    return value >> 16U | (value & 0xFF00U) | (value & 0xFFU) << 16U;
}

std::string RgbText(std::uint32_t rgb) {
    std::string text = "#";
    for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U})  // Red is in the lowest byte.
        text += "0123456789ABCDEF"[(rgb >> shift) & 0xFU];
    return text;
}

std::optional<Color> ParseColor(std::string_view text) {
    if (const auto rgb = ParseRgb(text)) return *rgb;
    if (const auto spot = Inside(text, kSpot)) return ParseSpot(*spot);
    const auto inks = ParseCmyk(text);
    if (!inks) return std::nullopt;
    return Color(ScreenOf(*inks), std::make_shared<const Ink>(Ink{{}, inks}));
}

std::string ColorText(const Color& color) {
    if (!color.ink) return RgbText(color.rgb);
    const Ink& ink = *color.ink;
    if (ink.spot.empty()) return CmykText(ink.process.value_or(Cmyk()));
    std::string text = std::string(kSpot) + ink.spot;
    if (ink.process) text += ", " + CmykText(*ink.process);
    if (color.rgb != ScreenOf(ink)) text += ", " + RgbText(color.rgb);
    return text + ')';
}

bool BeginsAsInk(std::string_view text) {
    return text.starts_with(kCmyk) || text.starts_with(kSpot);
}

}  // namespace pdf
