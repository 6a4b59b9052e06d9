#pragma once

#include <initializer_list>
#include <string>

namespace app {

/// A path as it is stored: full, so that the document finds the file from anywhere.
std::string FullPath(const std::string& path);

/// Whether two paths lead to the same file, which need not be there. Never for an empty path.
bool IsSameFile(const std::string& one, const std::string& other);

/// Raises a UsageError where a command would write over a file that it needs for something else.
/// Empty paths stand for no file.
void CheckApart(const std::string& written, std::initializer_list<std::string> others);

}  // namespace app
