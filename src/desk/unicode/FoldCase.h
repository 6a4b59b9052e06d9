#pragma once

#include <string>

namespace desk {

/// A text in the form in which two texts that differ in case alone are equal.
std::string FoldCase(const std::string& text);

}  // namespace desk
