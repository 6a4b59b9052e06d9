#include "desk/tables/DbfWorkspace.h"

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "desk/tables/DbfTable.h"
#include "desk/tables/PlainObjects.h"
#include "desk/unicode/FoldCase.h"
#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".dbf";

bool Exists(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(path, ignored);
}

/// The path as given comes first, because a file name may contain a backslash.
std::string WithSlashes(const std::string& path) {
    if (Exists(path)) return path;
    std::string converted = path;
    std::replace(converted.begin(), converted.end(), '\\', '/');
    return converted;
}

std::vector<fs::path> FilesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    std::error_code ignored;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, ignored), end;
         !ignored && entry != end; entry.increment(ignored))
        if (entry->is_regular_file(ignored)) files.push_back(entry->path().filename());
    std::sort(files.begin(), files.end());
    return files;
}

class DbfDataset : public host::IHostDataset {
public:
    explicit DbfDataset(std::string name) : name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    void Delete() override {
        throw host::Failure(host::kFailureUnspecified, "DbfDataset",
                            name_ + " is a dBase table, which is not deleted from here.");
    }

private:
    std::string name_;
};

}  // namespace

std::string ResolveTablePath(const std::string& path, const std::string& beside) {
    const fs::path given = WithSlashes(path);
    if (Exists(given)) return given;
    fs::path wanted = given;
    if (!wanted.has_extension()) wanted += kEnding;
    for (const fs::path& file : FilesOf(wanted.parent_path()))
        if (file.stem() == wanted.stem() &&
            FoldCase(file.extension()) == FoldCase(wanted.extension()))
            return wanted.parent_path() / file;
    if (beside.empty() || !given.has_filename()) return given;
    const fs::path moved = ResolveTablePath((fs::path(beside) / given.filename()).string());
    return Exists(moved) ? moved : given;
}

host::Ref<host::IHostTable> DbfWorkspace::OpenTable(const std::string& name) {
    const std::string path =
        folder_.empty() ? name : (fs::path(folder_) / WithSlashes(name)).string();
    return std::make_shared<DbfTable>(ResolveTablePath(path, beside_));
}

host::Ref<host::IHostTable> DbfWorkspace::CreateTable(const std::string& name,
                                                      const host::Ref<host::IHostFields>&,
                                                      const host::Ref<host::IHostIdentifier>&,
                                                      const host::Ref<host::IHostIdentifier>&,
                                                      const std::string&) {
    throw host::Failure(host::kFailureUnspecified, "DbfWorkspace",
                        "The table " + name + " cannot be made: dBase tables are only read here.");
}

host::Ref<host::IHostDatasetEnum> DbfWorkspace::Datasets(std::int32_t type) {
    std::vector<host::Ref<host::IHostDataset>> datasets;
    if (type == host::kDatasetTypeTable)
        for (const fs::path& file : FilesOf(folder_))
            if (FoldCase(file.extension()) == kEnding)
                datasets.push_back(std::make_shared<DbfDataset>(file));
    return std::make_shared<DatasetList>(std::move(datasets));
}

host::Ref<host::IHostWorkspace> DbfWorkspaceFactory::OpenFromFile(const std::string& path,
                                                                  std::int32_t) {
    const std::string folder = WithSlashes(path);
    std::error_code ignored;
    if (!folder.empty() && beside_.empty() && !fs::is_directory(folder, ignored))
        throw host::Failure(host::kFailureNotFound, "DbfWorkspaceFactory",
                            "There is no folder " + folder + ".");
    return std::make_shared<DbfWorkspace>(folder, beside_);
}

}  // namespace desk
