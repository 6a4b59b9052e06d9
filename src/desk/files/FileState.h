#pragma once

#include <cstdint>
#include <string>
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

}  // namespace desk
