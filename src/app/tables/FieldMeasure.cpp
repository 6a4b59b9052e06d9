#include "app/tables/FieldMeasure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace app {
namespace {

// Decimals of a dBase number that a double can tell.
constexpr std::int32_t kMostDecimals = 15;

}  // namespace

void FieldMeasure::Take(const host::Variant& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) {
        hasText_ = hasText_ || !text->empty();
        bytes_ = std::max(bytes_, static_cast<std::int32_t>(text->size()));
    } else if (const auto* const whole = std::get_if<std::int32_t>(&value)) {
        TakeNumber(*whole);
    } else if (const auto* const real = std::get_if<double>(&value)) {
        TakeNumber(*real);
    }
}

void FieldMeasure::TakeNumber(double number) {
    std::array<char, 400> buffer{};  // The longest double has 309 digits and 17 decimals.
    const char* const end =
        std::to_chars(buffer.begin(), buffer.end(), number, std::chars_format::fixed).ptr;
    const std::string_view text(buffer.data(), end);
    const auto point = std::min(text.find('.'), text.size());
    hasNumber_ = true;
    digits_ = std::max(digits_, static_cast<std::int32_t>(point));
    bytes_ = std::max(bytes_, static_cast<std::int32_t>(text.size()));
    if (point < text.size())
        decimals_ = std::max(
            decimals_, std::min(kMostDecimals, static_cast<std::int32_t>(text.size() - point - 1)));
}

gis::SourceField FieldMeasure::FieldFor(const OutputField& field) const {
    using Kind = gis::FieldKind;
    gis::SourceField measured;
    measured.name = field.name;
    measured.kind = field.kind;
    if (field.kind == Kind::Date || field.kind == Kind::Logical) return measured;
    const bool isNumber = !hasText_ && (hasNumber_ || field.kind == Kind::Number);
    measured.kind = isNumber ? Kind::Number : Kind::Text;
    measured.decimals = isNumber ? decimals_ : 0;
    measured.length = std::max(1, isNumber && decimals_ > 0 ? digits_ + 1 + decimals_
                                  : isNumber                ? digits_
                                                            : bytes_);
    return measured;
}

}  // namespace app
