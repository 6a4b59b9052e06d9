#include "desk/tables/FilesOfFolder.h"

#include <algorithm>

namespace desk {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOfFolder(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, ignored), end;
         !ignored && entry != end; entry.increment(ignored))
        if (entry->is_regular_file(ignored)) files.push_back(entry->path().filename());
    std::ranges::sort(files);
    return files;
}

}  // namespace desk
