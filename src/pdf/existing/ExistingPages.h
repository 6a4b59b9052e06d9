#pragma once

#include <string>
#include <vector>

#include "pdf/navigation/Target.h"

namespace pdf {

/// A page of a file that exists.
struct ExistingPage {
    std::string name;      ///< By its page label: "iv", "12", "A-3"; empty without one.
    View sheet;            ///< The trimmed sheet.
    int quarterTurns = 0;  ///< Clockwise, by which viewers turn the page: 0 to 3.
};

/// Reads the pages of a file. Throws Error for a file that cannot be read.
std::vector<ExistingPage> ReadPages(const std::string& path);

/// Returns where a part of the sheet lies on the page. The part is in points from the lower left
/// corner of the trimmed sheet as viewers show it.
View OnPage(const ExistingPage& page, const View& part);

}  // namespace pdf
