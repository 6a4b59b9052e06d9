#include "desk/files/SaveLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace desk {

SaveLock::SaveLock(const std::string& path)
    : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    // Never waits: who holds it is replacing the file, so that the answer would be the same.
    if (file_ >= 0 && ::flock(file_, LOCK_EX | LOCK_NB) != 0) heldByOther_ = errno == EWOULDBLOCK;
}

SaveLock::~SaveLock() {
    if (file_ >= 0) ::close(file_);
}

}  // namespace desk
