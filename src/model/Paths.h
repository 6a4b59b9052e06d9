#pragma once

#include <string>

#include "host/TableFactory.h"

namespace gazetteer {

/// The last piece of a path that is split at backslashes; a path without one is answered whole.
std::string GetFileName(const std::string& path);

/// The folder of a file, without a final backslash. Empty pieces at the front vanish, but for the
/// two backslashes of a network path.
std::string RemoveFileName(const std::string& path);

/// Opens a dBase file by its path: its folder as a workspace, then the file as a table.
host::Ref<host::IHostTable> OpenTableFile(host::IHostTableFactory& host, const std::string& path);

}  // namespace gazetteer
