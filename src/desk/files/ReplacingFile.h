#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "desk/files/Files.h"

namespace desk {

/// A file that appears under its name only once it is complete, so that at every moment, also in a
/// crash, either the old or the new content stands there in full. Until then it has no name where
/// the file system allows that, and else a name beside its place; nothing remains of one that is
/// given up. A link stays a link to what is written, and permissions stay. Every failure is one
/// sentence that names the file and the reason.
class ReplacingFile {
public:
    /// What to do with a place that is no ordinary file, such as a device.
    enum class Devices { Refuse, WriteAtOnce };

    explicit ReplacingFile(const std::string& path, Devices devices = Devices::Refuse);
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    /// False once something could not be written; Commit then fails.
    bool Write(std::string_view content);

    /// Syncs what was written. All that may fail for want of room has then been done.
    void Complete();
    /// Completes what was written and puts it in its place.
    void Commit() { Commit(std::nullopt); }
    /// The same, unless another file stands there than the expected one: one that has changed
    /// since, or any where none was. An expected file that is gone is no hindrance. Answers the new
    /// state.
    FileState Commit(const std::optional<FileState>& expected);

    /// Fails with what went wrong so far, if anything did.
    void Check() const;
    [[noreturn]] void Fail(const std::string& reason) const;

    const std::string& Path() const { return path_; }

private:
    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    void OpenNameless();
    void OpenBeside();
    void Take(int file);
    void NameIt();
    void CheckExpected(const FileState& expected) const;
    void PutInPlace(const std::optional<FileState>& expected);
    bool MakeNew() const;
    void DressAsOld() const;
    void SyncFolder() const;
    [[noreturn]] void FailWith(int error) const;

    std::string path_;              ///< As the user knows it.
    std::filesystem::path target_;  ///< Links followed.
    std::filesystem::path beside_;  ///< The name beside the place; empty without one.
    std::unique_ptr<std::FILE, Closer> stream_;
    bool complete_ = false;
    bool atOnce_ = false;  ///< The target is written directly.
    int error_ = 0;        ///< errno of the first write that failed.
};

}  // namespace desk
