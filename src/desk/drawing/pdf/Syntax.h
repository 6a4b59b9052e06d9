#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The parts of a PDF file's syntax: numbers, references and strings.
namespace desk::pdf {

/// Appends scaled / 10^decimals (decimals from 0 to 6) in its shortest form: 1250 with 3 decimals
/// is 1.25, 500 is .5.
void AppendScaled(std::string& out, std::int64_t scaled, int decimals);

inline void AppendInteger(std::string& out, std::int64_t value) {
    AppendScaled(out, value, 0);
}

/// Appends a number rounded to at most 6 decimals.
void AppendNumber(std::string& out, double value, int decimals = 6);

/// Appends the upper-case hexadecimal digits of a number.
void AppendHex(std::string& out, std::uint32_t value, int digits);

/// Appends UTF-8 text as the hexadecimal digits of UTF-16. What is not UTF-8 becomes U+FFFD.
void AppendUtf16(std::string& out, std::string_view text);

std::string Number(double value, int decimals = 6);

/// A reference to an object.
std::string Reference(int object);

/// A string for readers: a title, or the text of a part of a page.
std::string TextString(std::string_view text);

}  // namespace desk::pdf
