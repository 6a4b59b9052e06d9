#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Tables.h"

namespace desk {

/// A folder of dBase tables, or a source with layers, read only: creating and deleting tables
/// throws.
class TableWorkspace : public host::IHostWorkspace {
public:
    /// Accepts either separator. With an empty folder, table names are paths.
    explicit TableWorkspace(std::string folder, std::string beside = {})
        : folder_(std::move(folder)), beside_(std::move(beside)) {}

    /// Opens a table of the folder in any format. FindTable resolves the name.
    host::Ref<host::IHostTable> OpenTable(const std::string& name) override;
    host::Ref<host::IHostTable> CreateTable(const std::string& name,
                                            const host::Ref<host::IHostFields>& fields,
                                            const host::Ref<host::IHostIdentifier>& rowClass,
                                            const host::Ref<host::IHostIdentifier>& extensionClass,
                                            const std::string& configuration) override;
    /// Returns the .dbf files, in any case, sorted by name, or the layers of the source. Empty for
    /// types other than 10.
    host::Ref<host::IHostDatasetEnum> Datasets(std::int32_t type) override;

private:
    std::vector<std::string> TableNames() const;

    std::string folder_;
    std::string beside_;
};

class TableWorkspaceFactory : public host::IHostWorkspaceFactory {
public:
    /// Tables that are not where a path says are looked for in the second folder, if there is one.
    explicit TableWorkspaceFactory(std::string beside = {}) : beside_(std::move(beside)) {}

    /// Throws if the path is no folder and no source, unless it is empty or tables are looked for
    /// elsewhere.
    host::Ref<host::IHostWorkspace> OpenFromFile(const std::string& path,
                                                 std::int32_t window) override;

private:
    std::string beside_;
};

}  // namespace desk
