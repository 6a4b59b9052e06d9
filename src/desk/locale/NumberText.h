#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unicode/locid.h>
#include <vector>

namespace desk {

class NumberText {
public:
    explicit NumberText(const icu::Locale& locale);

    /// Parses a whole text: optional sign, digits of any script with group separators between them,
    /// decimal sign, exponent after e or E. Returns nothing for any other text and for values
    /// beyond the range of a double.
    std::optional<double> Parse(std::string_view text) const;

    /// Returns the shortest decimal text that reads back as the same value. Uses an exponent only
    /// below 1e-7 and from 1e21.
    std::string Format(double value) const;

private:
    char Classify(char32_t character) const;

    std::string decimal_;
    char32_t decimalSign_ = U'.';
    std::vector<char32_t> groupSigns_;
};

}  // namespace desk
