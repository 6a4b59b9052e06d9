#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// PDF syntax: numbers, references and strings.
namespace pdf {

/// Appends scaled / 10^decimals (decimals 0 to 6) in its shortest form: 1250 with 3 decimals is
/// 1.25, 500 is .5.
void AppendScaled(std::string& out, std::int64_t scaled, int decimals);

inline void AppendInteger(std::string& out, std::int64_t value) {
    AppendScaled(out, value, 0);
}

/// Returns a number times 10^decimals (0 to 6), rounded and within what files can hold; 0 for NaN.
std::int64_t Scaled(double value, int decimals);

/// Appends a number rounded to the given decimals, at most 6.
void AppendNumber(std::string& out, double value, int decimals = 6);

/// Appends a number in upper-case hexadecimal digits.
void AppendHex(std::string& out, std::uint32_t value, int digits);

/// Appends UTF-8 text as hexadecimal UTF-16. Malformed bytes become U+FFFD.
void AppendUtf16(std::string& out, std::string_view text);

std::string Number(double value, int decimals = 6);

std::string Reference(int object);

/// Returns a string of bytes, as they are.
std::string ByteString(std::string_view bytes);

/// Returns a text string, such as a title or the ActualText of a span.
std::string TextString(std::string_view text);

}  // namespace pdf
