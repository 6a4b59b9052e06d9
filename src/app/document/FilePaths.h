#pragma once

#include <string>

namespace app {

/// Returns a path as documents store it: absolute, and with a backslash unchanged.
std::string FullPath(const std::string& path);

/// Returns true if two paths name the same file, existing or not, also by links of either kind;
/// false for an empty path.
bool IsSameFile(const std::string& one, const std::string& other);

/// Returns true if a file is a table or one that is read with it: its code page or memos.
bool IsOfTable(const std::string& path, const std::string& table);

/// Throws CommandError if the folder of a file to be written does not exist. Called before long
/// work.
void CheckFolderOf(const std::string& path);

/// Throws CommandError if there is a file at the path that is no document and holds anything.
void CheckIsDocumentOrNew(const std::string& path);

}  // namespace app
