#pragma once

#include <string>
#include <vector>

#include "pdf/file/Output.h"
#include "pdf/navigation/Target.h"

namespace pdf {

/// A destination that the appended pages lead to.
struct Destination {
    std::string name;
    int page = 0;              ///< Of the first file, from 0.
    std::optional<View> view;  ///< Nothing: the whole page.
};

/// Writes a file that has the pages of two files. The first one stays as it is: its objects and
/// streams, bookmarks, layers, page labels. Behind its pages stand those of the other, with their
/// labels, their bookmarks below one of the given title, and their structure. Of the standards that
/// the first one claims, it keeps those that are still true. Throws Error for files that cannot be
/// read.
void AppendPages(const std::string& first, const std::string& other, const std::string& title,
                 const std::vector<Destination>& destinations, Output& output);

}  // namespace pdf
