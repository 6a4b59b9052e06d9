#pragma once

#include <string>

namespace pdf {

/// Returns the ICC profile of sRGB, the same bytes each time. Throws Error if it cannot be made.
std::string ScreenProfile();

}  // namespace pdf
