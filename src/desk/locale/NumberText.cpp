#include "desk/locale/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <unicode/dcfmtsym.h>
#include <unicode/uchar.h>

#include "characters/Utf8.h"
#include "host/Failure.h"

namespace desk {
namespace {

constexpr char32_t kNoBreakSpace = 0x00A0;
constexpr char32_t kNarrowNoBreakSpace = 0x202F;
constexpr char32_t kApostrophe = U'\'';
constexpr char32_t kRightQuote = 0x2019;
constexpr char32_t kMinusSign = 0x2212;
/// Every integer with this number of digits is exact in a double.
constexpr std::size_t kExactDigits = 15;
/// Longer texts, in bytes, are not parsed as numbers.
constexpr std::size_t kLongestNumber = 400;
/// Result of Classify for a group separator.
constexpr char kGroup = ',';

/// Returns the accepted group separators: keyboards lack the typographic ones of many locales.
std::vector<char32_t> GroupSigns(char32_t sign) {
    if (sign == kNoBreakSpace || sign == kNarrowNoBreakSpace)
        return {kNoBreakSpace, kNarrowNoBreakSpace};
    if (sign == kApostrophe || sign == kRightQuote) return {kApostrophe, kRightQuote};
    if (sign == 0) return {};
    return {sign};
}

char32_t OnlyCharacter(const icu::UnicodeString& text) {
    return text.countChar32() == 1 ? static_cast<char32_t>(text.char32At(0)) : 0;
}

/// Parses a short run of ASCII digits, the most frequent case in an index.
std::optional<double> PlainInteger(std::string_view text) {
    if (text.empty() || text.size() > kExactDigits) return std::nullopt;
    std::int64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return std::nullopt;
        value = value * 10 + (digit - '0');
    }
    return static_cast<double>(value);
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

}  // namespace

NumberText::NumberText(const icu::Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(locale, status);
    if (U_FAILURE(status))
        throw host::Failure(
            host::kFailureUnspecified, "NumberText",
            std::string("ICU has no number signs for the locale ") + locale.getName() + ".");
    const auto& decimal =
        symbols.getConstSymbol(icu::DecimalFormatSymbols::kDecimalSeparatorSymbol);
    if (const char32_t sign = OnlyCharacter(decimal)) decimalSign_ = sign;
    icu::UnicodeString(static_cast<UChar32>(decimalSign_)).toUTF8String(decimal_);
    groupSigns_ = GroupSigns(
        OnlyCharacter(symbols.getConstSymbol(icu::DecimalFormatSymbols::kGroupingSeparatorSymbol)));
}

/// Returns the character as from_chars reads it (digit, sign, '.' or 'e'), kGroup, or 0 for a
/// character that is not part of a number.
char NumberText::Classify(char32_t character) const {
    if (character >= U'0' && character <= U'9') return static_cast<char>(character);
    if (character == decimalSign_) return '.';
    if (std::find(groupSigns_.begin(), groupSigns_.end(), character) != groupSigns_.end())
        return kGroup;
    if (character == U'-' || character == kMinusSign) return '-';
    if (character == U'+') return '+';
    if (character == U'e' || character == U'E') return 'e';
    const int digit = character >= 0x80 ? u_charDigitValue(static_cast<UChar32>(character)) : -1;
    return digit >= 0 ? static_cast<char>('0' + digit) : '\0';
}

std::optional<double> NumberText::Parse(std::string_view text) const {
    if (const auto plain = PlainInteger(text)) return plain;
    if (text.empty() || text.size() > kLongestNumber) return std::nullopt;

    // from_chars checks the order of everything except group separators and a leading plus.
    std::array<char, kLongestNumber> ascii;
    std::size_t length = 0;
    char previous = '\0';
    bool whole = true;  // No decimal sign or exponent so far.
    for (std::size_t at = 0; at < text.size();) {
        const char part = Classify(characters::NextCodePoint(text, at));
        if (part == '\0') return std::nullopt;
        if (part == kGroup && !(IsDigit(previous) && whole)) return std::nullopt;
        if (previous == kGroup && !IsDigit(part)) return std::nullopt;
        const bool afterLeadingPlus = previous == '+' && length == 0;
        if (afterLeadingPlus && (part == '+' || part == '-')) return std::nullopt;
        if (part == '.' || part == 'e') whole = false;
        const bool isLeadingPlus = previous == '\0' && part == '+';
        if (part != kGroup && !isLeadingPlus) ascii[length++] = part;
        previous = part;
    }
    if (previous == kGroup) return std::nullopt;

    double value = 0;
    const auto parsed = std::from_chars(ascii.data(), ascii.data() + length, value);
    if (parsed.ec != std::errc() || parsed.ptr != ascii.data() + length) return std::nullopt;
    return value;
}

std::string NumberText::Format(double value) const {
    if (value == 0) return "0";  // Also for negative zero.
    const double magnitude = std::abs(value);
    const bool fixed = magnitude >= 1e-7 && magnitude < 1e21;
    std::array<char, 64> buffer;
    const auto written = fixed ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                               std::chars_format::fixed)
                               : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string text(buffer.data(), written.ptr);
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, decimal_);
    return text;
}

}  // namespace desk
