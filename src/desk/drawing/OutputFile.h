#pragma once

#include <cairo.h>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>

namespace desk {

/// A file that appears under its name only once it is complete. Until then it is written beside
/// its place; whatever was there stays untouched, and nothing remains of an output given up. A
/// place that is no ordinary file, such as a device, is written to at once.
class OutputFile {
public:
    /// Throws host::Failure where no file can be written.
    explicit OutputFile(const std::string& path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Sink for cairo; the closure is the OutputFile.
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned int length);

    /// Puts the file in its place. Throws host::Failure where any of it could not be written.
    void Commit();

    /// Throws host::Failure unless cairo is content.
    void Check(cairo_status_t status) const;

    const std::string& Path() const { return path_; }

private:
    struct Closer {
        void operator()(std::FILE* stream) const { std::fclose(stream); }
    };

    void OpenDirectly();
    void OpenBeside();
    [[noreturn]] void Fail(int error) const;

    std::string path_;              ///< As the user knows it.
    std::filesystem::path target_;  ///< Links followed.
    std::filesystem::path beside_;  ///< Empty where the target is written directly.
    std::unique_ptr<std::FILE, Closer> stream_;
    int error_ = 0;  ///< errno of the first write that failed.
};

}  // namespace desk
