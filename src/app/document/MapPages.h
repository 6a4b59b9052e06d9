#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/existing/AppendPages.h"
#include "pdf/navigation/Target.h"

namespace app {

/// What a user tells of the file of the maps that references lead to.
struct MapFile {
    std::string path;         ///< Empty: references lead nowhere.
    bool isSameFile = false;  ///< The output has the pages of the maps before the index.
    std::optional<std::int64_t> firstPage;  ///< Page of the file that is map page 1.
};

/// The pages of the maps, by the names that references give them: the page labels of the file or,
/// without these, their numbers in the file.
class MapPages {
public:
    /// Reads the file. Links are written for an index at the given path. Throws CommandError for a
    /// file that cannot be read.
    MapPages(MapFile maps, const std::string& indexPath);

    const std::string& Path() const { return maps_.path; }
    /// Whether the output has the pages of the maps before those of the index.
    bool IsSameFile() const { return maps_.isSameFile; }

    bool Has(std::string_view page) const { return pages_.contains(page); }

    /// Returns the target of a page; null if there is no such page. Valid while this exists.
    const pdf::Target* Find(std::string_view page);

    /// Returns the destinations of the targets found so far, for an output with the maps.
    std::vector<pdf::Destination> Destinations() const;

private:
    MapFile maps_;
    std::string file_;  ///< As links name it; empty in the same file.
    std::map<std::string, int, std::less<>> pages_;
    std::map<int, pdf::Target> targets_;  ///< By page.
};

/// Reads the file of the maps; null without a path. Throws UsageError for an output that is no PDF,
/// or that is this file, and CommandError for a file that cannot be read.
std::shared_ptr<MapPages> OpenMaps(const MapFile& maps, const std::string& output);

}  // namespace app
