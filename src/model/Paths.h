#pragma once

#include <string>

#include "host/Tables.h"

/// Paths as the host's documents have them, split at backslashes alone. A path with slashes is all
/// file name, which the desk's tables open as it is.
namespace gazetteer {

/// The part of a path after its last backslash; the whole path where it has none.
std::string GetFileName(const std::string& path);

/// The folder of a file, without a final backslash. Leading empty pieces are dropped, except for
/// the two backslashes of a network path.
std::string RemoveFileName(const std::string& path);

/// Opens a dBase file by its path: its folder as a workspace, then the file as a table.
host::Ref<host::IHostTable> OpenTableFile(host::IHostTableFactory& host, const std::string& path);

}  // namespace gazetteer
