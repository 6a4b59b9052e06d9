#include "desk/files/ReplacingFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // As many as the system itself follows.

/// More files of one process than ever stand beside one place at a time.
constexpr int kMostAttempts = 1000;

constexpr mode_t kOrdinaryMode = 0666;  // Less what the user's mask takes away.
constexpr mode_t kPermissions = 07777;

/// Where a file really stands: the end of the chain of links that begins at the path.
fs::path EndOfLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) break;
        path = path.parent_path() / target;
    }
    return path;
}

fs::path FolderOf(const fs::path& file) {
    const fs::path folder = file.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

fs::path Beside(const fs::path& target, int attempt) {
    return FolderOf(target) /
           (".desk-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
}

/// The way to an open file that has no name.
std::string WayTo(int file) {
    return "/proc/self/fd/" + std::to_string(file);
}

/// Locks a file while it is replaced, so that of two programs that have read the same content the
/// second finds it replaced. The lock is on the open file and ends with the program. A file that is
/// not there or cannot be locked is replaced without a lock.
class SaveLock {
public:
    explicit SaveLock(const fs::path& path)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)),
          // Does not wait: the other program is replacing the file, so the save fails either way.
          heldByOther_(file_.IsOpen() && ::flock(file_.Get(), LOCK_EX | LOCK_NB) != 0 &&
                       errno == EWOULDBLOCK) {}

    bool HeldByOther() const { return heldByOther_; }

private:
    Descriptor file_;
    bool heldByOther_;
};

}  // namespace

ReplacingFile::ReplacingFile(const std::string& path, Devices devices)
    : path_(path), target_(EndOfLinks(path)) {
    if (path.empty()) FailWith(ENOENT);
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) FailWith(errno);
    if (exists && S_ISDIR(old.st_mode)) Fail("it is a folder");
    if (exists && ::access(target_.c_str(), W_OK) != 0) FailWith(errno);
    if (!exists || S_ISREG(old.st_mode)) {
        OpenNameless();
        if (!stream_) OpenBeside();
    } else {
        if (devices == Devices::Refuse) Fail("it is no ordinary file");
        atOnce_ = true;
        stream_.reset(std::fopen(target_.c_str(), "wb"));
        if (!stream_) FailWith(errno);
    }
}

ReplacingFile::~ReplacingFile() {
    stream_.reset();
    if (!beside_.empty()) ::unlink(beside_.c_str());
}

// A program that is killed leaves nothing of such a file. Not every file system has them, and the
// way to name one later may be closed; then there is no stream.
void ReplacingFile::OpenNameless() {
    const int file =
        ::open(FolderOf(target_).c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kOrdinaryMode);
    if (file < 0) return;
    if (::access(WayTo(file).c_str(), F_OK) == 0) return Take(file);
    ::close(file);
}

void ReplacingFile::OpenBeside() {
    int file = -1;
    for (int attempt = 0; file < 0 && attempt < kMostAttempts; ++attempt) {
        beside_ = Beside(target_, attempt);
        file = ::open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOrdinaryMode);
        if (file < 0 && errno != EEXIST) break;
    }
    if (file < 0) {
        const int error = errno;
        beside_.clear();
        FailWith(error);
    }
    Take(file);
}

void ReplacingFile::Take(int file) {
    stream_.reset(::fdopen(file, "wb"));
    if (stream_) return;
    const int error = errno;
    ::close(file);
    if (!beside_.empty()) ::unlink(beside_.c_str());
    beside_.clear();
    FailWith(error);
}

bool ReplacingFile::Write(std::string_view content) {
    if (error_ == 0 &&
        std::fwrite(content.data(), 1, content.size(), stream_.get()) != content.size())
        error_ = errno;
    return error_ == 0;
}

void ReplacingFile::Complete() {
    if (error_ == 0 && std::fflush(stream_.get()) != 0) error_ = errno;
    Check();
    complete_ = true;
    if (atOnce_) return;
    DressAsOld();
    if (::fsync(::fileno(stream_.get())) != 0) FailWith(errno);
}

FileState ReplacingFile::Commit(const std::optional<FileState>& expected) {
    if (!complete_) Complete();
    if (!atOnce_ && beside_.empty()) NameIt();
    const FileState written = FileState::Of(::fileno(stream_.get()));
    if (std::fclose(stream_.release()) != 0) FailWith(errno);
    if (!atOnce_) PutInPlace(expected);
    return written;
}

void ReplacingFile::NameIt() {
    const std::string way = WayTo(::fileno(stream_.get()));
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        const fs::path name = Beside(target_, attempt);
        if (::linkat(AT_FDCWD, way.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
            beside_ = name;
            return;
        }
        if (errno != EEXIST) break;
    }
    FailWith(errno);
}

void ReplacingFile::PutInPlace(const std::optional<FileState>& expected) {
    const SaveLock lock(target_);
    if (expected && lock.HeldByOther()) Fail("another program is just saving it");
    if (expected) CheckExpected(*expected);
    const bool made = expected && !FileState::At(target_).exists && MakeNew();
    if (!made && ::rename(beside_.c_str(), target_.c_str()) != 0) FailWith(errno);
    beside_.clear();
    SyncFolder();
}

// Puts the file where nothing is, and fails if something is there by now. False where the file
// system has no links.
bool ReplacingFile::MakeNew() const {
    if (::link(beside_.c_str(), target_.c_str()) != 0) {
        if (errno == EEXIST) CheckExpected({});
        return false;
    }
    ::unlink(beside_.c_str());
    return true;
}

void ReplacingFile::CheckExpected(const FileState& expected) const {
    const FileState found = FileState::At(target_);
    if (!found.exists || found == expected) return;
    Fail(expected.exists ? "another program has changed it since it was read"
                         : "another program has made a file of that name meanwhile");
}

// Takes over the permissions of the file that is replaced, and its owner where that is allowed.
void ReplacingFile::DressAsOld() const {
    struct stat old {};
    if (::stat(target_.c_str(), &old) != 0) return;
    const int file = ::fileno(stream_.get());
    if (::fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) FailWith(errno);
    if (::fchmod(file, old.st_mode & kPermissions) != 0) FailWith(errno);
}

// Makes the rename last. A folder that cannot be opened or does not support fsync is
// no failure.
void ReplacingFile::SyncFolder() const {
    const Descriptor folder(::open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen() && ::fsync(folder.Get()) != 0 && errno != EINVAL && errno != EROFS)
        FailWith(errno);
}

void ReplacingFile::Check() const {
    if (error_ != 0) FailWith(error_);
}

void ReplacingFile::FailWith(int error) const {
    Fail(std::generic_category().message(error));
}

void ReplacingFile::Fail(const std::string& reason) const {
    host::Failure failure(host::kFailureUnspecified, "ReplacingFile",
                          "The file \"" + path_ + "\" cannot be written: " + reason + ".");
    failure.AddFact("file", path_);
    throw failure;
}

}  // namespace desk
