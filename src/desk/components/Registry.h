#pragma once

#include <string>
#include <vector>

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

/// Entries of a list in the order of their entry. A file that is not there is an empty list. Fails
/// for one that is no such list.
std::vector<ComponentEntry> ReadComponents(const std::string& file);

/// Replaces the list; makes its folder where there is none.
void WriteComponents(const std::string& file, const std::vector<ComponentEntry>& entries);

}  // namespace desk
