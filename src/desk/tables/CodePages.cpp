#include "desk/tables/CodePages.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <string_view>

namespace desk {
namespace {

struct DriverEncoding {
    std::uint8_t driver;
    std::string_view encoding;
};

/// The bytes in use by dBase, FoxPro and their kin. Two national pages of the DOS time, 0x68 and
/// 0x69 (Kamenicky, Mazovia), are missing: ICU has no data for them.
constexpr std::array kDrivers = std::to_array<DriverEncoding>({
    {0x01, "IBM437"},
    {0x02, "IBM850"},
    {0x03, "windows-1252"},
    {0x04, "macintosh"},
    {0x08, "IBM865"},
    {0x09, "IBM437"},
    {0x0A, "IBM850"},
    {0x0B, "IBM437"},
    {0x0D, "IBM437"},
    {0x0E, "IBM850"},
    {0x0F, "IBM437"},
    {0x10, "IBM850"},
    {0x11, "IBM437"},
    {0x12, "IBM850"},
    {0x13, "windows-932"},
    {0x14, "IBM850"},
    {0x15, "IBM437"},
    {0x16, "IBM850"},
    {0x17, "IBM865"},
    {0x18, "IBM437"},
    {0x19, "IBM437"},
    {0x1A, "IBM850"},
    {0x1B, "IBM437"},
    {0x1C, "IBM863"},
    {0x1D, "IBM850"},
    {0x1F, "IBM852"},
    {0x22, "IBM852"},
    {0x23, "IBM852"},
    {0x24, "IBM860"},
    {0x25, "IBM850"},
    {0x26, "IBM866"},
    {0x37, "IBM850"},
    {0x40, "IBM852"},
    {0x4D, "windows-936"},
    {0x4E, "windows-949"},
    {0x4F, "windows-950"},
    {0x50, "windows-874"},
    {0x57, "windows-1252"},
    {0x58, "windows-1252"},
    {0x59, "windows-1252"},
    {0x64, "IBM852"},
    {0x65, "IBM866"},
    {0x66, "IBM865"},
    {0x67, "IBM861"},
    {0x6A, "IBM737"},
    {0x6B, "IBM857"},
    {0x6C, "IBM863"},
    {0x78, "windows-950"},
    {0x79, "windows-949"},
    {0x7A, "windows-936"},
    {0x7B, "windows-932"},
    {0x7C, "windows-874"},
    {0x7D, "windows-1255"},
    {0x7E, "windows-1256"},
    {0x86, "IBM737"},
    {0x87, "IBM852"},
    {0x88, "IBM857"},
    {0x96, "x-mac-cyrillic"},
    {0x97, "x-mac-centraleurroman"},
    {0x98, "x-mac-greek"},
    {0xC8, "windows-1250"},
    {0xC9, "windows-1251"},
    {0xCA, "windows-1254"},
    {0xCB, "windows-1253"},
    {0xCC, "windows-1257"},
});

std::string EncodingOfNumber(int page) {
    if (page == 65001) return "UTF-8";
    if (page >= 88591 && page <= 88599) return "ISO-8859-" + std::to_string(page - 88590);
    if (page >= 885910 && page <= 885916) return "ISO-8859-" + std::to_string(page - 885900);
    const bool isWindows = (page >= 1250 && page <= 1258) || page == 874 || page == 932 ||
                           page == 936 || page == 949 || page == 950;
    return (isWindows ? "windows-" : "IBM") + std::to_string(page);
}

/// The number that a text ends in, or 0 where there is none.
int NumberAtEnd(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && std::isdigit(static_cast<unsigned char>(text[start - 1])) != 0) --start;
    int number = 0;
    std::from_chars(text.data() + start, text.data() + text.size(), number);
    return number;
}

std::string Trimmed(std::string_view text) {
    const auto isWord = [](char letter) { return static_cast<unsigned char>(letter) > ' '; };
    const auto* const first = std::find_if(text.begin(), text.end(), isWord);
    const auto* const last = std::find_if(text.rbegin(), text.rend(), isWord).base();
    return first < last ? std::string(first, last) : std::string();
}

}  // namespace

std::string EncodingOfDriver(std::uint8_t driver) {
    const auto* const found =
        std::find_if(kDrivers.begin(), kDrivers.end(),
                     [&](const auto& entry) { return entry.driver == driver; });
    return found == kDrivers.end() ? std::string() : std::string(found->encoding);
}

std::string EncodingOfDriverName(const std::string& name) {
    if (name.starts_with("DBWIN")) return "windows-1252";
    int page = 0;
    if (name.starts_with("DB")) std::from_chars(name.data() + 2, name.data() + name.size(), page);
    return page >= 100 ? EncodingOfNumber(page) : std::string();
}

std::string EncodingOfCpg(const std::string& content) {
    std::string_view bytes = content;
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    std::string text = Trimmed(bytes);
    std::string upper = text;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    if (upper.starts_with("LDID"))
        return EncodingOfDriver(static_cast<std::uint8_t>(NumberAtEnd(upper)));
    const bool isNumber = !upper.empty() &&
                          std::isdigit(static_cast<unsigned char>(upper[0])) != 0 &&
                          upper.find_first_not_of("0123456789") == std::string::npos;
    if (isNumber || upper.starts_with("ANSI") || upper.starts_with("OEM") ||
        upper.starts_with("CP"))
        if (const int page = NumberAtEnd(upper)) return EncodingOfNumber(page);
    return text;
}

}  // namespace desk
