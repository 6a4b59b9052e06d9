#pragma once

#include <string>
#include <string_view>

#include "desk/files/ReplacingFile.h"

namespace desk {

/// Where sheets are written to: a file that appears under its name only once it is complete. A
/// place that is no ordinary file, such as a device, is written to at once. Failures are
/// host::Failure.
class OutputFile {
public:
    explicit OutputFile(const std::string& path)
        : file_(path, ReplacingFile::Devices::WriteAtOnce) {}

    void Write(std::string_view bytes) {
        if (!TryWrite(bytes)) Check();
    }
    /// False once something could not be written.
    bool TryWrite(std::string_view bytes) { return file_.Write(bytes); }

    void Complete() { file_.Complete(); }
    /// Puts the file in its place.
    void Commit() { file_.Commit(); }

    /// Fails with what went wrong so far, if anything did.
    void Check() const { file_.Check(); }
    [[noreturn]] void Fail(const std::string& reason) const { file_.Fail(reason); }

    const std::string& Path() const { return file_.Path(); }

private:
    ReplacingFile file_;
};

}  // namespace desk
