#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace app {

/// What every command takes.
struct CommonOptions {
    std::string locale;    ///< Empty: the user's.
    bool verbose = false;  ///< Show whole call-stack dialogs.
};

/// A rectangle on the sheet, in inches from its lower left corner.
struct FrameOption {
    double left = 0;
    double bottom = 0;
    double width = 0;
    double height = 0;
};

/// What `make` and `new` take.
struct NewDocumentOptions {
    std::string listingDatabase;
    std::string book;  ///< Map book file; empty for none.
    std::string pageSize = "letter";
    std::string frame;  ///< Empty: within the margins.
    std::vector<std::string> assignments;
    bool sample = false;
};

}  // namespace app
