#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace desk {

/// Which file stood at a path at a moment, and when it was last changed: tells later whether
/// others wrote to the place meanwhile. Every save by ReplacingFile makes another file of it.
struct FileState {
    /// Links followed. What cannot be looked at counts as not there.
    static FileState At(const std::string& path);
    static FileState Of(int descriptor);

    bool operator==(const FileState&) const = default;

    bool exists = false;
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    std::int64_t modifiedSeconds = 0;
    long modifiedNanoseconds = 0;
};

/// An open file, closed on every way out.
class Descriptor {
public:
    /// Takes what open returned, a negative number included.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    bool IsOpen() const { return number_ >= 0; }
    int Get() const { return number_; }

private:
    int number_;
};

/// The whole content of a file. The string has spare room for the JSON reader, which looks a few
/// bytes beyond the end. Fails for a file that is gone, a folder or one that may not be read.
/// The state, if asked for, is that before the first byte was read.
std::string ReadWholeFile(const std::string& path, FileState* state = nullptr);

/// Replaces a file, or makes a new one, in one step (see ReplacingFile).
void ReplaceFile(const std::string& path, std::string_view content);

}  // namespace desk
