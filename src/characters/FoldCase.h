#pragma once

#include <string>

namespace characters {

/// Returns the case-folded text. Texts that differ only in case become equal.
std::string FoldCase(const std::string& text);

}  // namespace characters
