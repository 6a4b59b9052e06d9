#include "app/document/FilePaths.h"

#include <filesystem>

#include "app/document/Errors.h"

namespace app {
namespace {

// Resolves links; the file need not exist.
std::filesystem::path Resolved(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path), ignored);
}

}  // namespace

std::string FullPath(const std::string& path) {
    // Paths with a backslash come from other systems and are kept.
    if (path.empty() || path.find('\\') != std::string::npos) return path;
    return std::filesystem::absolute(path).lexically_normal().string();
}

bool IsSameFile(const std::string& one, const std::string& other) {
    return !one.empty() && !other.empty() && Resolved(one) == Resolved(other);
}

void CheckApart(const std::string& written, std::initializer_list<std::string> others) {
    for (const std::string& other : others)
        if (IsSameFile(written, other))
            throw UsageError("The file \"" + written +
                             "\" cannot be written: the command needs it for something else.");
}

}  // namespace app
