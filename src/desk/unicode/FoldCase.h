#pragma once

#include <string>

namespace desk {

/// Returns the text with its case folded: texts that differ in case alone become equal.
std::string FoldCase(const std::string& text);

}  // namespace desk
