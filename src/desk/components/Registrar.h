#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Component.h"

namespace desk {

/// A class of a component under a category.
struct ComponentEntry {
    std::string category;
    std::string classId;
    std::string file;  ///< The component's library.

    bool operator==(const ComponentEntry&) const = default;
};

/// Where the user's list of components is kept: components.json in the folder gazetteer-desk of the
/// user's data folder, $XDG_DATA_HOME or ~/.local/share. Fails where neither is known.
std::string ComponentsFile();

/// Keeps the user's list of components. A class stands under a category once: entered again, it
/// keeps its place and serves from the new file.
class Registrar final : public host::IHostComponentRegistrar {
public:
    /// With the file of the list.
    explicit Registrar(std::string listFile) : listFile_(std::move(listFile)) {}

    /// The component's file may be named folder\base.dll; folder/base.so is meant. Fails for a
    /// component to be entered whose file is not there, and where the list cannot be read or
    /// written. Where nothing changes, nothing is written.
    void RegisterComponent(const std::string& componentFile,
                           const host::Ref<host::IHostIdentifier>& classId,
                           const host::Ref<host::IHostIdentifier>& categoryId,
                           bool install) override;

    /// What stands under a category, in the order of entry.
    std::vector<ComponentEntry> Entries(const std::string& category) const;

private:
    std::string listFile_;
};

}  // namespace desk
