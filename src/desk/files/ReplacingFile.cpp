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

constexpr int kMostLinks = 40;  // The kernel's own limit.

/// Attempts to find an unused temporary name.
constexpr int kMostAttempts = 1000;

constexpr mode_t kOrdinaryMode = 0666;  // Reduced by the user's umask.
constexpr mode_t kPermissions = 07777;

/// Returns the target at the end of a chain of symbolic links.
fs::path ResolveLinks(fs::path path) {
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

fs::path NameBeside(const fs::path& target, int attempt) {
    return FolderOf(target) /
           (".desk-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp");
}

/// Returns a path to an open file that has no name.
std::string ProcPath(int file) {
    return "/proc/self/fd/" + std::to_string(file);
}

/// Opens a device or a pipe. Fails with ENXIO for a pipe that no program has opened for reading:
/// opening would wait, without an end if none comes. Writing waits for the reader as usual.
int OpenDirectly(const fs::path& target) {
    const int file = ::open(target.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC | O_NONBLOCK);
    if (file >= 0) ::fcntl(file, F_SETFL, 0);
    return file;
}

/// Locks the target while it is replaced. If two programs have read the same content, the second
/// one to save then fails. The lock belongs to the open file and ends with the process. A target
/// that is missing or cannot be locked is replaced without a lock.
class SaveLock {
public:
    explicit SaveLock(const fs::path& path)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)),
          // Does not wait: the other program is replacing the file, so this save fails anyway.
          heldByOther_(file_.IsOpen() && ::flock(file_.Get(), LOCK_EX | LOCK_NB) != 0 &&
                       errno == EWOULDBLOCK) {}

    bool HeldByOther() const { return heldByOther_; }

private:
    Descriptor file_;
    bool heldByOther_;
};

}  // namespace

ReplacingFile::ReplacingFile(const std::string& path, Devices devices)
    : path_(path), target_(ResolveLinks(path)) {
    if (path.empty()) FailWith(ENOENT);
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) FailWith(errno);
    if (exists && S_ISDIR(old.st_mode)) Fail("it is a folder");
    if (exists && ::access(target_.c_str(), W_OK) != 0) FailWith(errno);
    if (!exists || S_ISREG(old.st_mode)) {
        OpenUnnamed();
        if (!stream_) OpenBeside();
    } else {
        if (devices == Devices::Refuse) Fail("it is no ordinary file");
        direct_ = true;
        const int file = OpenDirectly(target_);
        if (file < 0 && errno == ENXIO) Fail("no program reads from this pipe");
        if (file < 0) FailWith(errno);
        OpenStream(file);
    }
}

// The kernel deletes an unnamed file when the process ends. Leaves stream_ null if the file system
// does not support unnamed files or /proc is not available to name the file later.
void ReplacingFile::OpenUnnamed() {
    const int file =
        ::open(FolderOf(target_).c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, kOrdinaryMode);
    if (file < 0) return;
    if (::access(ProcPath(file).c_str(), F_OK) == 0) return OpenStream(file);
    ::close(file);
}

void ReplacingFile::OpenBeside() {
    int file = -1;
    for (int attempt = 0; file < 0 && attempt < kMostAttempts; ++attempt) {
        temporary_.Take(NameBeside(target_, attempt));
        file = ::open(temporary_.Get(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOrdinaryMode);
        if (file < 0 && errno != EEXIST) break;
    }
    if (file < 0) {
        const int error = errno;
        temporary_.GiveUp();
        FailWith(error);
    }
    OpenStream(file);
}

void ReplacingFile::OpenStream(int file) {
    stream_.reset(::fdopen(file, "wb"));
    if (stream_) return;
    const int error = errno;
    ::close(file);
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
    if (direct_) return;
    CopyPermissions();
    if (::fsync(::fileno(stream_.get())) != 0) FailWith(errno);
}

FileState ReplacingFile::Commit(const std::optional<FileState>& expected) {
    if (!complete_) Complete();
    if (!direct_ && temporary_.IsEmpty()) LinkBeside();
    const FileState written = FileState::Of(::fileno(stream_.get()));
    if (std::fclose(stream_.release()) != 0) FailWith(errno);
    if (!direct_) PutInPlace(expected);
    return written;
}

void ReplacingFile::LinkBeside() {
    const std::string source = ProcPath(::fileno(stream_.get()));
    for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
        temporary_.Take(NameBeside(target_, attempt));
        if (::linkat(AT_FDCWD, source.c_str(), AT_FDCWD, temporary_.Get(), AT_SYMLINK_FOLLOW) == 0)
            return;
        if (errno != EEXIST) break;
    }
    const int error = errno;
    temporary_.GiveUp();
    FailWith(error);
}

void ReplacingFile::PutInPlace(const std::optional<FileState>& expected) {
    const SaveLock lock(target_);
    if (expected && lock.HeldByOther()) Fail("another program is just saving it");
    if (expected) CheckExpected(*expected);
    const bool made = expected && !FileState::At(target_).exists && LinkIfAbsent();
    if (!made && ::rename(temporary_.Get(), target_.c_str()) != 0) FailWith(errno);
    temporary_.GiveUp();
    SyncFolder();
}

// Links the temporary file to the target name, which must not exist; throws if it does by now.
// Returns false if the file system has no hard links.
bool ReplacingFile::LinkIfAbsent() const {
    if (::link(temporary_.Get(), target_.c_str()) != 0) {
        if (errno == EEXIST) CheckExpected({});
        return false;
    }
    ::unlink(temporary_.Get());
    return true;
}

void ReplacingFile::CheckExpected(const FileState& expected) const {
    const FileState found = FileState::At(target_);
    if (!found.exists || found == expected) return;
    Fail(expected.exists ? "another program has changed it since it was read"
                         : "another program has made a file of that name meanwhile");
}

// Copies the permissions of the old file, and its owner if that is permitted.
void ReplacingFile::CopyPermissions() const {
    struct stat old {};
    if (::stat(target_.c_str(), &old) != 0) return;
    const int file = ::fileno(stream_.get());
    if (::fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) FailWith(errno);
    if (::fchmod(file, old.st_mode & kPermissions) != 0) FailWith(errno);
}

// Makes the rename durable. A folder that cannot be opened or synced is no failure.
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
