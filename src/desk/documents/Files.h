#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The whole content of a file. The string has spare room for the JSON reader, which looks a few
/// bytes beyond the end. Fails for a file that is gone, a folder or one that may not be read.
std::string ReadWholeFile(const std::string& path);

/// Replaces a file, or makes a new one, so that at every moment, also in a crash, either the old
/// or the new content stands there in full: written beside, synced, renamed, the folder synced.
/// A link stays a link to the replaced file; permissions stay. Fails with the old file as it was
/// and nothing left beside it.
void ReplaceFile(const std::string& path, std::string_view content);

}  // namespace desk
