#pragma once

#include <filesystem>
#include <vector>

namespace desk {

/// Returns the names of a folder's regular files in order; of the working directory's if it is
/// empty, none if it cannot be read.
std::vector<std::filesystem::path> FilesOfFolder(const std::filesystem::path& folder);

}  // namespace desk
