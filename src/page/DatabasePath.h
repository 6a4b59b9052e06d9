#pragma once

#include <string>

namespace gazetteer {

/// The path of a listing database that was picked in the host's object dialog: an object itself, or
/// a folder and a typed name, which gets the ending ".dbf" where it holds none in this case.
std::string DatabasePath(const std::string& category, const std::string& fullName,
                         const std::string& typedName);

}  // namespace gazetteer
