#pragma once

#include <string>
#include <vector>

namespace pdf {

/// What the pages of a file are called.
struct PageNames {
    bool areTold = false;            ///< The file has page labels; else the names are 1, 2, 3.
    std::vector<std::string> names;  ///< Of each page, as viewers show them: "iv", "12", "A-3".
};

/// Throws Error for a file that cannot be read.
PageNames ReadPageNames(const std::string& path);

}  // namespace pdf
