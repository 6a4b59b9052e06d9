#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>

namespace desk {

/// Identity and modification time of the file at a path. Two equal states mean that no other
/// program has written the file in between: each save by ReplacingFile creates a new inode.
struct FileState {
    /// Follows links. A file that cannot be examined is reported as absent.
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

/// Owns a file descriptor and closes it.
class Descriptor {
public:
    /// Accepts the result of open(), including a negative one.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor();

    bool IsOpen() const { return number_ >= 0; }
    int Get() const { return number_; }

private:
    int number_;
};

/// Whether a path is that of no file, but of a server ("PG:dbname=atlas") or of something inside an
/// archive ("/vsizip/..."), if there is no file of that name. A letter before a colon is a drive.
bool IsConnectionName(const std::string& path);

/// Opens a file for reading. Throws host::Failure if it is missing, unreadable, or no regular file.
Descriptor OpenRegularFile(const std::string& path);

/// Returns the whole content of a file, with SIMDJSON_PADDING bytes of spare capacity. Throws
/// host::Failure as OpenRegularFile does. Sets *state, if given, to
/// the state before the first byte is read.
std::string ReadWholeFile(const std::string& path, FileState* state = nullptr);

/// Creates or replaces a file atomically (see ReplacingFile).
void ReplaceFile(const std::string& path, std::string_view content);

}  // namespace desk
