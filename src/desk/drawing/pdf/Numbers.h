#pragma once

#include <cstdint>
#include <string>

namespace desk::pdf {

/// Appends a number that counts units of ten to the power of minus the decimals, in its shortest
/// form: 1250 with 3 decimals is 1.25, 500 is .5.
void AppendScaled(std::string& out, std::int64_t scaled, int decimals);

inline void AppendInteger(std::string& out, std::int64_t value) {
    AppendScaled(out, value, 0);
}

/// Appends a number rounded to at most 6 decimals.
void AppendNumber(std::string& out, double value, int decimals = 6);

/// Appends a reference to an object.
inline void AppendReference(std::string& out, int object) {
    AppendInteger(out, object);
    out += " 0 R";
}

/// Appends the upper-case hexadecimal digits of a number.
void AppendHex(std::string& out, std::uint32_t value, int digits);

}  // namespace desk::pdf
