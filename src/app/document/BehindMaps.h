#pragma once

#include <string>

#include "app/document/MapPages.h"
#include "desk/files/TemporaryName.h"

namespace app {

/// Puts an index behind the maps that it belongs to, in one file.
class BehindMaps {
public:
    /// Makes an empty file for the index. Throws CommandError if that fails.
    BehindMaps();

    /// Where the index is to be written first.
    std::string IndexPath() const { return index_.Get(); }

    /// Writes the maps and the index behind them, below a bookmark of the given title. Throws if
    /// that fails; an existing file at the path is then unchanged.
    void Write(const MapFile& maps, const MapPages& pages, const std::string& title,
               const std::string& path) const;

private:
    desk::TemporaryName index_;
};

}  // namespace app
