#pragma once

namespace gazetteer {

/// Lengths reach so far, in inches, to either side: five of the largest sheets. All decimal numbers
/// that a user sets are lengths.
inline constexpr double kLongest = 1000;

/// False as well for what is no number.
constexpr bool IsLength(double inches) {
    return inches >= -kLongest && inches <= kLongest;
}

}  // namespace gazetteer
