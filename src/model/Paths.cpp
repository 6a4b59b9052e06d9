#include "model/Paths.h"

#include <vector>

namespace gazetteer {
namespace {

std::vector<std::string> SplitAtBackslashes(const std::string& path) {
    std::vector<std::string> pieces;
    std::size_t begin = 0;
    for (std::size_t end = path.find('\\'); end != std::string::npos;
         end = path.find('\\', begin)) {
        pieces.push_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    pieces.push_back(path.substr(begin));
    return pieces;
}

}  // namespace

std::string GetFileName(const std::string& path) {
    return SplitAtBackslashes(path).back();
}

std::string RemoveFileName(const std::string& path) {
    auto pieces = SplitAtBackslashes(path);
    pieces.pop_back();
    std::string folder;
    for (const std::string& piece : pieces) folder = folder.empty() ? piece : folder + '\\' + piece;
    return path.starts_with("\\\\") ? "\\\\" + folder : folder;
}

host::Ref<host::IHostTable> OpenTableFile(host::IHost& host, const std::string& path) {
    const auto workspace = host.NewWorkspaceFactory()->OpenFromFile(RemoveFileName(path), 0);
    return workspace->OpenTable(GetFileName(path));
}

}  // namespace gazetteer
