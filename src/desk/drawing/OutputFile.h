#pragma once

#include <cairo.h>
#include <string>

#include "desk/files/ReplacingFile.h"

namespace desk {

/// Where cairo writes to: a file that appears under its name only once it is complete. A place that
/// is no ordinary file, such as a device, is written to at once.
class OutputFile {
public:
    /// Throws host::Failure where no file can be written.
    explicit OutputFile(const std::string& path)
        : file_(path, ReplacingFile::Devices::WriteAtOnce) {}

    /// Sink for cairo; the closure is the OutputFile.
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length);

    /// Puts the file in its place. Throws host::Failure where any of it could not be written.
    void Commit() { file_.Commit(); }

    /// Throws host::Failure unless cairo is content.
    void Check(cairo_status_t status) const;

    const std::string& Path() const { return file_.Path(); }

private:
    ReplacingFile file_;
};

}  // namespace desk
