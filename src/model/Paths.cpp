#include "model/Paths.h"

#include "support/Text.h"

namespace gazetteer {
std::string GetFileName(const std::string& path) {
    return Split(path, '\\').back();
}

std::string RemoveFileName(const std::string& path) {
    auto pieces = Split(path, '\\');
    pieces.pop_back();
    std::string folder;
    for (const std::string& piece : pieces) folder = folder.empty() ? piece : folder + '\\' + piece;
    return path.starts_with("\\\\") ? "\\\\" + folder : folder;
}

host::Ref<host::IHostTable> OpenTableFile(host::IHostTableFactory& host, const std::string& path) {
    const auto workspace = host.NewWorkspaceFactory()->OpenFromFile(RemoveFileName(path), 0);
    return workspace->OpenTable(GetFileName(path));
}

}  // namespace gazetteer
