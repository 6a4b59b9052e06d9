#include "desk/tables/RecordFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "host/Failure.h"

namespace desk {
namespace {

[[noreturn]] void Fail(std::int32_t number, const std::string& text) {
    throw host::Failure(number, "RecordFile", text);
}

}  // namespace

RecordFile::RecordFile(std::string path) : path_(std::move(path)) {
    struct stat state = {};
    // Asked before opening: to open a pipe would wait for its other end.
    if (::stat(path_.c_str(), &state) != 0)
        Fail(host::kFailureNotFound,
             errno == ENOENT || errno == ENOTDIR
                 ? "There is no file " + path_ + "."
                 : path_ + " cannot be read: " + std::strerror(errno) + ".");
    if (S_ISDIR(state.st_mode))
        Fail(host::kFailureUnspecified, path_ + " is a folder, not a table.");
    if (!S_ISREG(state.st_mode)) Fail(host::kFailureUnspecified, path_ + " is not a regular file.");
    descriptor_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0)
        Fail(host::kFailureUnspecified, path_ + " cannot be read: " + std::strerror(errno) + ".");
    state_ = FileState::Of(descriptor_);
}

RecordFile::~RecordFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

void RecordFile::Read(std::int64_t offset, char* memory, std::size_t length) const {
    while (length > 0) {
        const ssize_t count = ::pread(descriptor_, memory, length, offset);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0)
            Fail(host::kFailureUnspecified,
                 path_ + " cannot be read: " + std::strerror(errno) + ".");
        if (count == 0)
            Fail(host::kFailureUnspecified, path_ + " became shorter while it was read.");
        memory += count;
        offset += count;
        length -= static_cast<std::size_t>(count);
    }
}

void RecordFile::CheckUnchanged() const {
    if (FileState::Of(descriptor_) != state_)
        Fail(host::kFailureUnspecified, path_ + " was changed while it was read.");
}

std::string RecordFile::ReadUpTo(std::int64_t offset, std::int64_t length) const {
    const std::int64_t available = std::max<std::int64_t>(0, state_.size - offset);
    std::string bytes(static_cast<std::size_t>(std::min(length, available)), '\0');
    Read(offset, bytes.data(), bytes.size());
    return bytes;
}

char RecordFile::ByteAt(std::int64_t offset) const {
    char byte = '\0';
    Read(offset, &byte, 1);
    return byte;
}

}  // namespace desk
