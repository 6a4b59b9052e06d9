#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "desk/files/Files.h"
#include "desk/files/TemporaryName.h"

namespace desk {

/// Writes a file and moves it to its path only when it is complete. At any moment, also after a
/// crash, the path holds either the whole old content or the whole new content. Until Commit the
/// file has no name (O_TMPFILE) or, where the file system does not support that, a temporary name
/// starting with ".desk-" in the same folder; the destructor removes an uncommitted file. A
/// symbolic link stays a link and its target is replaced; permissions are kept. Failures are
/// host::Failure with one sentence that names the file and the reason.
class ReplacingFile {
public:
    /// What to do with a path that is not a regular file: a device, or a pipe, which is refused
    /// unless a program reads from it.
    enum class Devices { Refuse, WriteAtOnce };

    explicit ReplacingFile(const std::string& path, Devices devices = Devices::Refuse);
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    /// Returns false after a write error; Commit then throws.
    bool Write(std::string_view content);

    /// Writes and syncs the content, so that a full disk is reported before Commit.
    void Complete();
    /// Completes the file and replaces the target.
    void Commit() { Commit(std::nullopt); }
    /// The same, but throws if the target exists and differs from the expected file. An expected
    /// file that no longer exists is no failure. Returns the new state of the target.
    FileState Commit(const std::optional<FileState>& expected);

    /// Throws if a write has failed.
    void Check() const;
    [[noreturn]] void Fail(const std::string& reason) const;

    const std::string& Path() const { return path_; }

private:
    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    void OpenUnnamed();
    void OpenBeside();
    void OpenStream(int file);
    void LinkBeside();
    void CheckExpected(const FileState& expected) const;
    void PutInPlace(const std::optional<FileState>& expected);
    bool LinkIfAbsent() const;
    void CopyPermissions() const;
    void SyncFolder() const;
    [[noreturn]] void FailWith(int error) const;

    std::string path_;              ///< As given by the user; for messages.
    std::filesystem::path target_;  ///< With links resolved.
    TemporaryName temporary_;       ///< Empty for a file without a name.
    std::unique_ptr<std::FILE, Closer> stream_;
    bool complete_ = false;
    bool direct_ = false;  ///< Writes to the target directly.
    int error_ = 0;        ///< errno of the first write that failed.
};

}  // namespace desk
