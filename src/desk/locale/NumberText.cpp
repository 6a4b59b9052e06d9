#include "desk/locale/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>
#include <unicode/dcfmtsym.h>
#include <unicode/uchar.h>

#include "desk/unicode/Utf8.h"
#include "host/Failure.h"

namespace desk {
namespace {

constexpr char32_t kNoBreakSpace = 0x00A0;
constexpr char32_t kNarrowNoBreakSpace = 0x202F;
constexpr char32_t kApostrophe = U'\'';
constexpr char32_t kRightQuote = 0x2019;
constexpr char32_t kMinusSign = 0x2212;
/// Every integer of so many digits is exact in a double.
constexpr std::size_t kExactDigits = 15;
/// Digits beyond this are no number that anyone prints.
constexpr std::size_t kLongestNumber = 400;

/// Signs that keyboards give in place of the typographic one.
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

/// The value of a short run of ASCII digits, by far the most frequent number of an index.
std::optional<double> PlainInteger(std::string_view text) {
    if (text.empty() || text.size() > kExactDigits) return std::nullopt;
    std::int64_t value = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return std::nullopt;
        value = value * 10 + (digit - '0');
    }
    return static_cast<double>(value);
}

}  // namespace

/// What may follow what in a number.
class NumberText::Grammar {
public:
    bool Accepts(Part part) {
        const bool accepted = MayFollow(part);
        if (part == Part::Digit) (exponent_ ? exponentDigits_ : digits_) = true;
        if (part == Part::Decimal) fraction_ = true;
        if (part == Part::Exponent) exponent_ = true;
        previous_ = part;
        return accepted;
    }
    bool MayEnd() const {
        return digits_ && exponent_ == exponentDigits_ && previous_ != Part::Group;
    }

private:
    bool MayFollow(Part part) const {
        switch (part) {
            case Part::Digit:
                return true;
            case Part::Group:
                return previous_ == Part::Digit && !fraction_ && !exponent_;
            case Part::Decimal:
                return !fraction_ && !exponent_ && previous_ != Part::Group;
            case Part::Sign:
                return previous_ == Part::Start || previous_ == Part::Exponent;
            case Part::Exponent:
                return digits_ && !exponent_ && previous_ != Part::Group;
            case Part::Start:
            case Part::Other:
                break;
        }
        return false;
    }

    bool digits_ = false, fraction_ = false, exponent_ = false, exponentDigits_ = false;
    Part previous_ = Part::Start;
};

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

NumberText::Piece NumberText::Classify(char32_t character) const {
    if (character >= U'0' && character <= U'9') return {Part::Digit, static_cast<char>(character)};
    if (character == decimalSign_) return {Part::Decimal, '.'};
    if (std::find(groupSigns_.begin(), groupSigns_.end(), character) != groupSigns_.end())
        return {Part::Group, '\0'};
    if (character == U'-' || character == kMinusSign) return {Part::Sign, '-'};
    if (character == U'+') return {Part::Sign, '+'};
    if (character == U'e' || character == U'E') return {Part::Exponent, 'e'};
    if (character >= 0x80) {
        const int digit = u_charDigitValue(static_cast<UChar32>(character));
        if (digit >= 0) return {Part::Digit, static_cast<char>('0' + digit)};
    }
    return {Part::Other, '\0'};
}

std::optional<double> NumberText::Parse(std::string_view text) const {
    if (const auto plain = PlainInteger(text)) return plain;
    if (text.empty() || text.size() > kLongestNumber) return std::nullopt;

    std::array<char, kLongestNumber> ascii;
    std::size_t length = 0;
    Grammar grammar;
    for (std::size_t at = 0; at < text.size();) {
        const bool first = at == 0;
        const Piece piece = Classify(NextCodePoint(text, at));
        if (!grammar.Accepts(piece.part)) return std::nullopt;
        // from_chars takes no plus before the number, only in the exponent.
        const bool isLeadingPlus = first && piece.ascii == '+';
        if (piece.ascii != '\0' && !isLeadingPlus) ascii[length++] = piece.ascii;
    }
    if (!grammar.MayEnd()) return std::nullopt;

    double value = 0;
    const auto parsed = std::from_chars(ascii.data(), ascii.data() + length, value);
    if (parsed.ec != std::errc() || parsed.ptr != ascii.data() + length) return std::nullopt;
    return value;
}

std::string NumberText::Format(double value) const {
    if (value == 0) return "0";  // Also for the negative zero.
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
