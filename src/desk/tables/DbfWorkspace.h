#pragma once

#include <string>

#include "host/Tables.h"

namespace desk {

/// A folder of dBase tables. Read only: making and deleting tables fails.
class DbfWorkspace : public host::IHostWorkspace {
public:
    /// Either separator is understood. An empty folder leaves the path to the table's name.
    explicit DbfWorkspace(std::string folder) : folder_(std::move(folder)) {}

    /// Opens a file of the folder as a DbfTable. Where it is not there as spelled, the ending is
    /// taken in any case, and ".dbf" is added to a name without one.
    host::Ref<host::IHostTable> OpenTable(const std::string& name) override;
    host::Ref<host::IHostTable> CreateTable(const std::string& name,
                                            const host::Ref<host::IHostFields>& fields,
                                            const host::Ref<host::IHostIdentifier>& rowClass,
                                            const host::Ref<host::IHostIdentifier>& extensionClass,
                                            const std::string& configuration) override;
    /// The folder's files with the ending .dbf in any case, by name. Type 10 alone has any.
    host::Ref<host::IHostDatasetEnum> Datasets(std::int32_t type) override;

private:
    std::string folder_;
};

class DbfWorkspaceFactory : public host::IHostWorkspaceFactory {
public:
    /// Fails for a path that is no folder, unless it is empty.
    host::Ref<host::IHostWorkspace> OpenFromFile(const std::string& path,
                                                 std::int32_t window) override;
};

/// The file that a path means: as it stands, or with "/" for "\", or with another case of its
/// ending. The path with "/" where there is no such file.
std::string ResolveTablePath(const std::string& path);

}  // namespace desk
