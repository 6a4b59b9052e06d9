#pragma once

#include <initializer_list>
#include <string>

namespace app {

/// Returns a path as documents store it: absolute, and with a backslash unchanged.
std::string FullPath(const std::string& path);

/// Returns true if two paths name the same file, existing or not; false for an empty path.
bool IsSameFile(const std::string& one, const std::string& other);

/// Throws UsageError if the written file is one of the others. Empty paths mean no file.
void CheckApart(const std::string& written, std::initializer_list<std::string> others);

}  // namespace app
