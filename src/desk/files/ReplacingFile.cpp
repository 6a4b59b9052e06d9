#include "desk/files/ReplacingFile.h"

#include <cerrno>
#include <fcntl.h>
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
        OpenBeside();
    } else {
        if (devices == Devices::Refuse) Fail("it is no ordinary file");
        stream_.reset(std::fopen(target_.c_str(), "wb"));
        if (!stream_) FailWith(errno);
    }
}

ReplacingFile::~ReplacingFile() {
    stream_.reset();
    if (!beside_.empty()) ::unlink(beside_.c_str());
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
    stream_.reset(::fdopen(file, "wb"));
    if (stream_) return;
    const int error = errno;
    ::close(file);
    ::unlink(beside_.c_str());
    beside_.clear();
    FailWith(error);
}

bool ReplacingFile::Write(std::string_view content) {
    if (error_ == 0 &&
        std::fwrite(content.data(), 1, content.size(), stream_.get()) != content.size())
        error_ = errno;
    return error_ == 0;
}

void ReplacingFile::Commit() {
    if (error_ == 0 && std::fflush(stream_.get()) != 0) error_ = errno;
    Check();
    if (!beside_.empty()) {
        DressAsOld();
        if (::fsync(::fileno(stream_.get())) != 0) FailWith(errno);
    }
    if (std::fclose(stream_.release()) != 0) FailWith(errno);
    if (beside_.empty()) return;
    if (::rename(beside_.c_str(), target_.c_str()) != 0) FailWith(errno);
    beside_.clear();
    SyncFolder();
}

// Takes over the permissions of the file that is replaced, and its owner where that is allowed.
void ReplacingFile::DressAsOld() const {
    struct stat old {};
    if (::stat(target_.c_str(), &old) != 0) return;
    const int file = ::fileno(stream_.get());
    if (::fchown(file, old.st_uid, old.st_gid) != 0 && errno != EPERM) FailWith(errno);
    if (::fchmod(file, old.st_mode & kPermissions) != 0) FailWith(errno);
}

// Makes the rename last. Folders that cannot be opened or synced by their nature are let be.
void ReplacingFile::SyncFolder() const {
    const int folder = ::open(FolderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    const int error = ::fsync(folder) == 0 ? 0 : errno;
    ::close(folder);
    if (error != 0 && error != EINVAL && error != EROFS) FailWith(error);
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
