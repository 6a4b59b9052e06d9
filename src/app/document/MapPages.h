#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/document/MapSquares.h"
#include "app/document/OpenDocument.h"
#include "pdf/existing/AppendPages.h"
#include "pdf/existing/ExistingPages.h"
#include "pdf/navigation/Target.h"

namespace app {

/// What a user tells of the file of the maps that references lead to.
struct MapFile {
    std::string path;         ///< Empty: references lead nowhere.
    bool isSameFile = false;  ///< The output has the pages of the maps before the index.
    std::optional<std::int64_t> firstPage;  ///< Page of the file that is map page 1.
};

/// The pages of the maps, by the names that references give them: what the user told, else the page
/// labels of the file, else their numbers in the file.
class MapPages {
public:
    /// Reads the file. Links are written for an index at the given path. Throws CommandError for a
    /// file that cannot be read.
    MapPages(MapFile maps, const std::string& indexPath);

    /// Numbers the pages as the map book does, where nobody told their numbers and the file has as
    /// many pages as the section of the maps that the bound gazetteer is linked to.
    void NumberByBook(OpenDocument& open);

    const std::string& Path() const { return maps_.path; }
    /// Whether the output has the pages of the maps before those of the index.
    bool IsSameFile() const { return maps_.isSameFile; }

    /// Whether a page has this name. Blanks and line ends in it do not count.
    bool Has(std::string_view page) const;

    /// Returns the target of a page, or of a square on it; null if there is no such page. The
    /// square may be null. Valid while this exists.
    const pdf::Target* Find(std::string_view page, const MapSquare* square);

    /// Returns the destinations of the targets found so far, for an output with the maps.
    std::vector<pdf::Destination> Destinations() const;

private:
    void NumberFrom(std::int64_t first);
    void FindPlaces();
    pdf::Target MakeTarget(std::size_t place, const MapSquare* square) const;

    MapFile maps_;
    std::string file_;  ///< As links name it; empty in the same file.
    std::vector<pdf::ExistingPage> pages_;
    bool areNumbersTold_ = false;                             ///< By the user or by page labels.
    std::map<std::string, std::size_t, std::less<>> places_;  ///< By names without blanks.

    /// Page, row and column; row and column are 0 for a whole page.
    using TargetKey = std::array<std::size_t, 3>;
    std::map<TargetKey, pdf::Target> targets_;
};

/// Reads the file of the maps; null without a path. Throws UsageError for an output that is no PDF,
/// or that is this file, and CommandError for a file that cannot be read.
std::shared_ptr<MapPages> OpenMaps(const MapFile& maps, const std::string& output);

}  // namespace app
