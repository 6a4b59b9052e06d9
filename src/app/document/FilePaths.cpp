#include "app/document/FilePaths.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "app/document/Errors.h"
#include "desk/documents/Document.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

// Resolves links; the file need not exist.
std::filesystem::path Resolved(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(path), ignored);
}

}  // namespace

std::string FullPath(const std::string& path) {
    // Paths with a backslash come from other systems and are kept, as are servers.
    if (path.empty() || path.find('\\') != std::string::npos ||
        desk::TablePath{path, {}}.IsConnection())
        return path;
    return std::filesystem::absolute(path).lexically_normal().string();
}

bool IsSameFile(const std::string& one, const std::string& other) {
    if (one.empty() || other.empty()) return false;
    std::error_code ignored;
    return Resolved(one) == Resolved(other) || std::filesystem::equivalent(one, other, ignored);
}

bool IsOfTable(const std::string& path, const std::string& table) {
    if (table.empty()) return false;
    if (IsSameFile(path, table)) return true;
    return std::ranges::any_of(std::array{".cpg", ".CPG", ".dbt", ".DBT"}, [&](const char* ending) {
        return IsSameFile(path, std::filesystem::path(table).replace_extension(ending).string());
    });
}

void CheckFolderOf(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path();
    std::error_code ignored;
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
        throw CommandError("The file \"" + path + "\" cannot be written: there is no folder \"" +
                           folder.string() + "\".");
}

void CheckIsDocumentOrNew(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored) || std::filesystem::is_empty(path, ignored) ||
        desk::IsDocument(path))
        return;
    throw CommandError("The file \"" + path +
                       "\" is no document of the desk, so that it is not replaced by one.");
}

}  // namespace app
