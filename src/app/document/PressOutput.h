#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pdf/color/PressProfile.h"

namespace app {

/// What a user asks for of a PDF for a press.
struct PressOptions {
    std::string profile;  ///< File of the ICC profile; empty: the output is not for a press.
    std::string bleed;    ///< Length beyond the edges of the sheet; empty: none.
    bool cropMarks = false;
};

/// Reads the profile. Returns nothing without one. The file that is made has the date of the newest
/// of its sources; those without a path are not in files, and if none is, the date is today's.
/// Throws UsageError for another output than PDF, for a bleed or marks without a profile and for a
/// bleed of another form; CommandError for a file that is no profile of a press.
std::optional<pdf::Press> ReadPress(const PressOptions& options, const std::string& output,
                                    const std::vector<std::string>& sources);

}  // namespace app
