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

/// Large enough to make call costs negligible, small enough for the cache.
constexpr std::int64_t kBlockBytes = std::int64_t{256} * 1024;

[[noreturn]] void Fail(const std::string& text, std::int32_t number = host::kFailureUnspecified) {
    throw host::Failure(number, "RecordFile", text);
}

[[noreturn]] void FailToRead(const std::string& path) {
    Fail(path + " cannot be read: " + std::strerror(errno) + ".");
}

}  // namespace

RecordFile::RecordFile(std::string path) : path_(std::move(path)) {
    struct stat state = {};
    // Checked before opening, because opening a pipe would block.
    if (::stat(path_.c_str(), &state) != 0) {
        if (errno != ENOENT && errno != ENOTDIR) FailToRead(path_);
        Fail("There is no file " + path_ + ".", host::kFailureNotFound);
    }
    if (S_ISDIR(state.st_mode)) Fail(path_ + " is a folder, not a table.");
    if (!S_ISREG(state.st_mode)) Fail(path_ + " is not a regular file.");
    descriptor_ = std::make_shared<Descriptor>(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor_->IsOpen()) FailToRead(path_);
    state_ = FileState::Of(descriptor_->Get());
}

void RecordFile::CheckUnchanged() const {
    if (FileState::Of(descriptor_->Get()) != state_)
        Fail(path_ + " was changed while it was read.");
}

std::string_view RecordFile::Bytes(std::int64_t offset, std::int64_t length) {
    length = std::min(length, Size() - offset);
    if (length <= 0) return {};
    if (offset < blockStart_ ||
        offset + length > blockStart_ + static_cast<std::int64_t>(block_.size()))
        Fill(offset, std::min(std::max(length, kBlockBytes), Size() - offset));
    return {block_.data() + (offset - blockStart_), static_cast<std::size_t>(length)};
}

void RecordFile::Fill(std::int64_t offset, std::int64_t length) {
    blockStart_ = Size();  // Empty, in case the read fails.
    block_.resize(static_cast<std::size_t>(length));
    for (std::int64_t filled = 0; filled < length;) {
        const ssize_t count = ::pread(descriptor_->Get(), block_.data() + filled,
                                      static_cast<std::size_t>(length - filled), offset + filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) FailToRead(path_);
        if (count == 0) Fail(path_ + " became shorter while it was read.");
        filled += count;
    }
    blockStart_ = offset;
}

}  // namespace desk
