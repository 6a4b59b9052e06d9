#pragma once

#include <string>

#include "host/Tables.h"

namespace desk {

/// A folder of dBase tables, read only: creating and deleting tables throws.
class DbfWorkspace : public host::IHostWorkspace {
public:
    /// Accepts either separator. With an empty folder, table names are paths.
    explicit DbfWorkspace(std::string folder, std::string beside = {})
        : folder_(std::move(folder)), beside_(std::move(beside)) {}

    /// Opens a file of the folder as a DbfTable. If there is no file of that name, tries other
    /// cases of the ending, and adds ".dbf" to a name without ending.
    host::Ref<host::IHostTable> OpenTable(const std::string& name) override;
    host::Ref<host::IHostTable> CreateTable(const std::string& name,
                                            const host::Ref<host::IHostFields>& fields,
                                            const host::Ref<host::IHostIdentifier>& rowClass,
                                            const host::Ref<host::IHostIdentifier>& extensionClass,
                                            const std::string& configuration) override;
    /// Returns the .dbf files, in any case, sorted by name. Empty for types other than 10.
    host::Ref<host::IHostDatasetEnum> Datasets(std::int32_t type) override;

private:
    std::string folder_;
    std::string beside_;
};

class DbfWorkspaceFactory : public host::IHostWorkspaceFactory {
public:
    /// Tables that are not where a path says are looked for in the second folder, if there is one.
    explicit DbfWorkspaceFactory(std::string beside = {}) : beside_(std::move(beside)) {}

    /// Throws if the path is not a folder, unless it is empty or tables are looked for elsewhere.
    host::Ref<host::IHostWorkspace> OpenFromFile(const std::string& path,
                                                 std::int32_t window) override;

private:
    std::string beside_;
};

/// Returns the existing file that a path means: as given, with "/" for "\", or with another case of
/// its ending; else a file of that name in the second folder, if one is given. Returns the path
/// with
/// "/" if there is none.
std::string ResolveTablePath(const std::string& path, const std::string& beside = {});

}  // namespace desk
