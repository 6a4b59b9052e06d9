#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/existing/AppendPages.h"
#include "pdf/navigation/Target.h"

namespace app {

/// The file of the maps that references lead to.
struct MapFile {
    std::string path;                       ///< Empty: references lead nowhere.
    bool isSameFile = false;                ///< The index is put behind the maps.
    std::optional<std::int64_t> firstPage;  ///< Page of the file that is map page 1.
};

/// The pages of the maps, by the names that references give them: the page labels of the file or,
/// without these, their numbers in the file.
class MapPages {
public:
    /// Reads the file. Links are written for an index at the given path. Throws host::Failure for a
    /// file that cannot be read.
    MapPages(const MapFile& maps, const std::string& indexPath);

    /// Returns the target of a page; null if there is no such page. Valid while this exists.
    const pdf::Target* Find(std::string_view page);

    /// The destinations of the targets found so far, where the index is put behind the maps.
    std::vector<pdf::Destination> Destinations() const;

private:
    std::string file_;  ///< As links name it; empty in the same file.
    std::map<std::string, int, std::less<>> pages_;
    std::map<int, pdf::Target> targets_;  ///< By page.
};

}  // namespace app
