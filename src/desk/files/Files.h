#pragma once

#include <string>
#include <string_view>

#include "desk/files/FileState.h"

namespace desk {

/// The whole content of a file. The string has spare room for the JSON reader, which looks a few
/// bytes beyond the end. Fails for a file that is gone, a folder or one that may not be read.
/// The state, if asked for, is that before the first byte was read.
std::string ReadWholeFile(const std::string& path, FileState* state = nullptr);

/// Replaces a file, or makes a new one, in one step (see ReplacingFile).
void ReplaceFile(const std::string& path, std::string_view content);

}  // namespace desk
