#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Object.h"

namespace host {

/// Everything that depends on the user's locale.
struct IHostLocale : virtual IHostObject {
    /// Compares without regard to case: -1, 0 or 1.
    virtual int CompareText(const std::string& text1, const std::string& text2) = 0;
    /// Bytes whose plain comparison gives what CompareText gives; for texts compared often.
    virtual std::string CollationKey(const std::string& text) = 0;
    /// The value of a text that is a number as a whole; nothing for any other text.
    virtual std::optional<double> ParseNumber(const std::string& text) = 0;
    /// A number's shortest decimal text with the locale's decimal sign and no grouping.
    virtual std::string FormatNumber(double value) = 0;
    /// Lengths in bytes of the text's characters, a character being what a reader sees as one: a
    /// base with its combining marks. CR and LF are always two.
    virtual std::vector<std::size_t> Characters(std::string_view text) = 0;
};

}  // namespace host
