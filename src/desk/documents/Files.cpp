#include "desk/documents/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <simdjson.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "host/Failure.h"

namespace desk {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;           // As many as the system itself follows.
constexpr std::size_t kChunk = 1 << 20;  // Read per call where the size is not known, bytes.

[[noreturn]] void Fail(const std::string& path, const std::string& deed,
                       const std::string& reason) {
    const bool gone = errno == ENOENT;
    host::Failure failure(gone ? host::kFailureNotFound : host::kFailureUnspecified, "desk::Files",
                          "The file \"" + path + "\" could not be " + deed + ": " + reason + ".");
    failure.AddFact("file", path);
    throw failure;
}

std::string SystemReason() {
    return std::generic_category().message(errno);
}

/// An open file, closed on every way out.
class Handle {
public:
    explicit Handle(int descriptor) : descriptor_(descriptor) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Close(); }

    bool IsOpen() const { return descriptor_ >= 0; }
    int Get() const { return descriptor_; }
    bool Close() { return descriptor_ < 0 || ::close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

/// The file that stands beside the real one until it is whole.
class Draft {
public:
    explicit Draft(const fs::path& folder) : file_(Make(folder)) {}
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft() {
        file_.Close();
        if (!path_.empty()) ::unlink(path_.c_str());
    }

    bool IsOpen() const { return file_.IsOpen(); }

    bool Write(std::string_view content) {
        while (!content.empty()) {
            const auto written = ::write(file_.Get(), content.data(), content.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return false;
            content.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }

    /// Takes over permissions, and the owner where that is allowed.
    bool DressAs(const struct stat& old) {
        if (::fchown(file_.Get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return false;
        return ::fchmod(file_.Get(), old.st_mode & 07777U) == 0;
    }

    bool Finish() { return ::fsync(file_.Get()) == 0 && file_.Close(); }

    bool Become(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) return false;
        path_.clear();
        return true;
    }

private:
    int Make(const fs::path& folder) {
        for (int number = 0;; ++number) {
            const fs::path path = folder / (".desk-" + std::to_string(::getpid()) + "-" +
                                            std::to_string(number) + ".tmp");
            const int made = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (made >= 0) path_ = path;
            if (made >= 0 || errno != EEXIST) return made;
        }
    }

    fs::path path_;
    Handle file_;
};

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

std::optional<struct stat> Existing(const std::string& path, const fs::path& target) {
    struct stat old {};
    if (::stat(target.c_str(), &old) != 0) {
        if (errno == ENOENT) return std::nullopt;
        Fail(path, "written", SystemReason());
    }
    if (S_ISDIR(old.st_mode)) Fail(path, "written", "it is a folder");
    if (!S_ISREG(old.st_mode)) Fail(path, "written", "it is no ordinary file");
    if (::access(target.c_str(), W_OK) != 0) Fail(path, "written", SystemReason());
    return old;
}

/// Makes a rename last. Folders that cannot be opened or synced by their nature are let be.
bool SyncFolder(const fs::path& folder) {
    const Handle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return !handle.IsOpen() || ::fsync(handle.Get()) == 0 || errno == EINVAL || errno == EROFS;
}

}  // namespace

std::string ReadWholeFile(const std::string& path) {
    const Handle file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) {
        Fail(path, "read", errno == ENOENT ? "there is no such file" : SystemReason());
    }
    struct stat info {};
    if (::fstat(file.Get(), &info) != 0) Fail(path, "read", SystemReason());
    if (S_ISDIR(info.st_mode)) Fail(path, "read", "it is a folder");

    std::string content;
    const auto expected = static_cast<std::size_t>(std::max<off_t>(info.st_size, 0));
    content.reserve(expected + simdjson::SIMDJSON_PADDING);
    for (;;) {
        const std::size_t have = content.size();
        // One byte more than expected finds the end of a file of the known size in one go.
        content.resize(have < expected ? expected + 1 : have + kChunk);
        const auto got = ::read(file.Get(), content.data() + have, content.size() - have);
        content.resize(have + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) return content;
        if (got < 0 && errno != EINTR) Fail(path, "read", SystemReason());
    }
}

void ReplaceFile(const std::string& path, std::string_view content) {
    const fs::path target = EndOfLinks(path);
    const fs::path folder = FolderOf(target);
    const auto old = Existing(path, target);

    Draft draft(folder);
    if (!draft.IsOpen() || (old && !draft.DressAs(*old)) || !draft.Write(content) ||
        !draft.Finish() || !draft.Become(target) || !SyncFolder(folder)) {
        Fail(path, "written", SystemReason());
    }
}

}  // namespace desk
