#pragma once

#include <string>

#include "app/document/MapPages.h"
#include "desk/files/TemporaryName.h"

namespace app {

/// Writes one file with the pages of the maps, and those of their index after them.
class BehindMaps {
public:
    /// Makes an empty file for the index. Throws CommandError if that fails.
    BehindMaps();

    /// Returns the path that the index must be written to before Write.
    std::string IndexPath() const { return index_.Get(); }

    /// Writes the file at the path. A bookmark of the given title leads to the index. Throws if
    /// that fails, and then leaves an existing file unchanged.
    void Write(const MapPages& maps, const std::string& title, const std::string& path) const;

private:
    desk::TemporaryName index_;
};

}  // namespace app
