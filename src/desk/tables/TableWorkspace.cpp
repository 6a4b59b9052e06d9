#include "desk/tables/TableWorkspace.h"

#include <filesystem>
#include <utility>
#include <vector>

#include "characters/FoldCase.h"
#include "desk/components/GisLibrary.h"
#include "desk/tables/FilesOfFolder.h"
#include "desk/tables/PlainObjects.h"
#include "desk/tables/TablePath.h"
#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

/// A folder of tables, and not one that is a database. The empty name is the working directory.
bool IsFolder(const std::string& path) {
    std::error_code ignored;
    return path.empty() || (fs::is_directory(path, ignored) && !TablePath{path, {}}.Exists());
}

class TableDataset : public host::IHostDataset {
public:
    explicit TableDataset(std::string name) : name_(std::move(name)) {}

    std::string Name() const override { return name_; }
    void Delete() override {
        throw host::Failure(host::kFailureUnspecified, "TableDataset",
                            name_ + " is a table that is not deleted from here.");
    }

private:
    std::string name_;
};

}  // namespace

host::Ref<host::IHostTable> TableWorkspace::OpenTable(const std::string& name) {
    return desk::OpenTable(FindTable(folder_.empty() ? name : folder_ + '/' + name, beside_));
}

host::Ref<host::IHostTable> TableWorkspace::CreateTable(const std::string& name,
                                                        const host::Ref<host::IHostFields>&,
                                                        const host::Ref<host::IHostIdentifier>&,
                                                        const host::Ref<host::IHostIdentifier>&,
                                                        const std::string&) {
    throw host::Failure(host::kFailureUnspecified, "TableWorkspace",
                        "The table " + name + " cannot be made: tables are only read here.");
}

host::Ref<host::IHostDatasetEnum> TableWorkspace::Datasets(std::int32_t type) {
    std::vector<host::Ref<host::IHostDataset>> datasets;
    if (type == host::kDatasetTypeTable)
        for (const std::string& name : TableNames())
            datasets.push_back(std::make_shared<TableDataset>(name));
    return std::make_shared<DatasetList>(std::move(datasets));
}

std::vector<std::string> TableWorkspace::TableNames() const {
    if (!IsFolder(folder_)) return LoadGisModule("Reading " + folder_).Layers(folder_);
    std::vector<std::string> names;
    for (const fs::path& file : FilesOfFolder(folder_))
        if (characters::FoldCase(file.extension()) == ".dbf") names.push_back(file);
    return names;
}

host::Ref<host::IHostWorkspace> TableWorkspaceFactory::OpenFromFile(const std::string& path,
                                                                    std::int32_t) {
    const std::string folder = FindTable(path).source;
    if (beside_.empty() && !IsFolder(folder) && !TablePath{folder, {}}.Exists())
        throw host::Failure(host::kFailureNotFound, "TableWorkspaceFactory",
                            "There is no folder " + folder + ".");
    return std::make_shared<TableWorkspace>(folder, beside_);
}

}  // namespace desk
