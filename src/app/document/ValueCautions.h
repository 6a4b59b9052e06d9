#pragma once

#include <string>
#include <vector>

#include "model/Settings.h"

namespace app {

/// A sentence for each value that is taken as it stands but is none of those that there are:
/// alignments, and a default page before the first; and for each negative length, which far from
/// zero moves things off the sheet.
std::vector<std::string> ValueCautions(const gazetteer::Settings& settings);

}  // namespace app
