#pragma once

#include <string>

namespace gazetteer {

/// The file that this code was loaded from.
struct OwnFile {
    std::string folder;
    std::string baseName;  ///< Without the ending.
};

/// Fails where the loader does not know.
OwnFile FindOwnFile();

}  // namespace gazetteer
