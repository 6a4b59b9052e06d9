#pragma once

#include <string>

#include "host/Host.h"

namespace gazetteer {

/// The path of a listing database that was picked in the host's object dialog: an object itself, or
/// a folder and a typed name, which gets the ending ".dbf" where it holds none in this case.
std::string DatabasePath(const std::string& category, const std::string& fullName,
                         const std::string& typedName);

/// The path of what the user picks in that dialog; empty after a cancel.
std::string PickListingDatabase(host::IHost& host);

}  // namespace gazetteer
