#include "pdf/file/Syntax.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "characters/Utf8.h"

namespace pdf {
namespace {

constexpr std::array<std::int64_t, 7> kPowersOfTen{1, 10, 100, 1000, 10000, 100000, 1000000};

std::int64_t PowerOfTen(int exponent) {
    return kPowersOfTen[static_cast<std::size_t>(exponent)];
}

void AppendDigits(std::string& out, std::int64_t value) {
    std::array<char, 24> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.append(digits.data(), end);
}

void AppendUtf16Units(std::string& out, char32_t character) {
    constexpr char32_t kFirstOfTwoUnits = 0x10000;
    if (character < kFirstOfTwoUnits) return AppendHex(out, character, 4);
    const char32_t rest = character - kFirstOfTwoUnits;
    AppendHex(out, 0xD800 + (rest >> 10), 4);
    AppendHex(out, 0xDC00 + (rest & 0x3FF), 4);
}

}  // namespace

void AppendScaled(std::string& out, std::int64_t scaled, int decimals) {
    if (scaled < 0) out += '-';
    const std::int64_t size = scaled < 0 ? -scaled : scaled;
    const std::int64_t whole = size / PowerOfTen(decimals);
    std::int64_t rest = size % PowerOfTen(decimals);
    if (whole != 0 || rest == 0) AppendDigits(out, whole);
    if (rest == 0) return;
    out += '.';
    for (int left = decimals; rest != 0;) {
        const std::int64_t power = PowerOfTen(--left);
        out += static_cast<char>('0' + rest / power);
        rest %= power;
    }
}

std::int64_t Scaled(double value, int decimals) {
    // Larger than any sheet; twice as much, the way between two of them, is within 32 bits.
    constexpr double kFarthest = 1e9;
    value = std::isnan(value) ? 0 : std::clamp(value, -kFarthest, kFarthest);
    return std::llround(value * static_cast<double>(PowerOfTen(decimals)));
}

void AppendNumber(std::string& out, double value, int decimals) {
    AppendScaled(out, Scaled(value, decimals), decimals);
}

void AppendHex(std::string& out, std::uint32_t value, int digits) {
    while (digits-- > 0) out += "0123456789ABCDEF"[(value >> (4 * digits)) & 0xF];
}

void AppendUtf16(std::string& out, std::string_view text) {
    for (std::size_t place = 0; place < text.size();) {
        const char32_t character = characters::NextCodePoint(text, place);
        AppendUtf16Units(out, character == characters::kNotUtf8 ? U'\uFFFD' : character);
    }
}

std::string Number(double value, int decimals) {
    std::string out;
    AppendNumber(out, value, decimals);
    return out;
}

std::string Reference(int object) {
    return std::to_string(object) + " 0 R";
}

std::string ByteString(std::string_view bytes) {
    std::string out = "(";
    for (const char byte : bytes) {
        if (byte == '(' || byte == ')' || byte == '\\') out += '\\';
        if (byte == '\r')  // Else read as a line feed.
            out += "\\r";
        else
            out += byte;
    }
    return out + ')';
}

std::string TextString(std::string_view text) {
    if (std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; }))
        return ByteString(text);
    std::string out = "<FEFF";
    AppendUtf16(out, text);
    return out + '>';
}

}  // namespace pdf
