#pragma once

#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Returns the path of the listing database selected in the host's object dialog: the object
/// itself, or a folder and a typed name. The name gets the ending ".dbf" unless it contains ".dbf"
/// in lower case.
std::string DatabasePath(const std::string& category, const std::string& fullName,
                         const std::string& typedName);

/// Opens the host's object dialog. Returns the selected path; empty if the user cancelled.
std::string PickListingDatabase(host::IHost& host);

}  // namespace gazetteer
