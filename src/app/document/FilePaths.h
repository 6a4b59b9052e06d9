#pragma once

#include <initializer_list>
#include <string>

namespace app {

/// Returns a path as documents store it: absolute, and with a backslash unchanged.
std::string FullPath(const std::string& path);

/// Whether two paths lead to the same file, which need not exist. False for an empty path.
bool IsSameFile(const std::string& one, const std::string& other);

/// Throws a UsageError where a command would write over a file that it needs for something else.
/// Empty paths mean no file.
void CheckApart(const std::string& written, std::initializer_list<std::string> others);

}  // namespace app
