#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/Component.h"

namespace desk {

/// A class that a component registered under a category.
struct ComponentEntry {
    std::string category;
    std::string classId;
    std::string file;  ///< Path of the component library.

    bool operator==(const ComponentEntry&) const = default;
};

/// Returns the path of the user's list of components: gazetteer-desk/components.json in
/// $XDG_DATA_HOME or ~/.local/share. Throws if neither is known.
std::string ComponentsFile();

/// The user's list of components. A class is listed once per category: registered again, it keeps
/// its position and gets the new file.
class Registrar final : public host::IHostComponentRegistrar {
public:
    explicit Registrar(std::string listFile) : listFile_(std::move(listFile)) {}

    /// Accepts a file named folder\base.dll for folder/base.so. Throws if the file of a component
    /// to register is missing, or if the list cannot be read or written. Writes only if something
    /// changes, or if there is no list yet.
    void RegisterComponent(const std::string& componentFile,
                           const host::Ref<host::IHostIdentifier>& classId,
                           const host::Ref<host::IHostIdentifier>& categoryId,
                           bool install) override;

    /// Returns the entries of a category in the order of registration.
    std::vector<ComponentEntry> Entries(const std::string& category) const;

private:
    std::string listFile_;
};

}  // namespace desk
