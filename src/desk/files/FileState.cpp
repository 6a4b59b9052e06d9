#include "desk/files/FileState.h"

#include <sys/stat.h>

namespace desk {
namespace {

FileState From(int failed, const struct stat& info) {
    if (failed != 0) return {};
    return {true,         info.st_dev,         info.st_ino,
            info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

}  // namespace

FileState FileState::At(const std::string& path) {
    struct stat info {};
    const int failed = ::stat(path.c_str(), &info);
    return From(failed, info);
}

FileState FileState::Of(int descriptor) {
    struct stat info {};
    const int failed = ::fstat(descriptor, &info);
    return From(failed, info);
}

}  // namespace desk
